"""How long files and functions are. clang-tidy measures the functions of C++ (.clang-tidy)."""

import ast

LONGEST_FILE = 400
LONGEST_FUNCTION = 60
LONGEST_INDEX = 220  # lines of form1.h


def check_file(project, path):
    limit = LONGEST_INDEX if path.name == "form1.h" else LONGEST_FILE
    length = len(project.text(path).splitlines())
    if length > limit:
        yield f"{project.name(path)}:{length}: longer than {limit} lines"


def check_python_functions(project, path):
    for node in ast.walk(ast.parse(project.text(path))):
        if isinstance(node, (ast.FunctionDef, ast.AsyncFunctionDef)):
            length = node.end_lineno - node.lineno + 1
            if length > LONGEST_FUNCTION:
                yield (f"{project.name(path)}:{node.lineno}: {node.name} is longer than "
                       f"{LONGEST_FUNCTION} lines")


def check(project):
    for path in [*project.cpp, *project.python]:
        yield from check_file(project, path)
    for path in project.python:
        yield from check_python_functions(project, path)
