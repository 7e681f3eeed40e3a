"""Small changes to C++ sources that tests should notice: where they can be made, and which."""

import random
import re

TOKEN = re.compile(
    r"""(?P<comment>//[^\n]*|/\*.*?\*/)
      | (?P<directive>^[ \t]*\#(?:[^\n]*\\\n)*[^\n]*)
      | (?P<string>"(?:\\.|[^"\\\n])*")
      | (?P<char>'(?:\\.[^'\n]*|[^'\\\n])')
      | (?P<number>(?:0[xX][0-9a-fA-F']+|\d[\d']*(?:\.\d+)?(?:e[+-]?\d+)?)[uUlLf]*)
      | (?P<word>[A-Za-z_]\w*)
      | (?P<operator><<=|>>=|<=>|->|\+\+|--|<<|>>|<=|>=|==|!=|&&|\|\||[-+*/%|&^]=|::|.)
    """, re.VERBOSE | re.MULTILINE | re.DOTALL)

BETWEEN_BLANKS = {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "==", "&&": "||",
                  "||": "&&", "+": "-", "-": "+", "*": "/", "/": "*", "%": "*", "+=": "-=",
                  "-=": "+=", "|": "&", "&": "|", "<<": ">>", ">>": "<<"}
ANYWHERE = {"++": "--", "--": "++"}
WORDS = {"true": "false", "false": "true", "min": "max", "max": "min"}

NO_STATEMENT = re.compile(
    r"(alignas|auto|case|catch|class|const|constexpr|default|do|else|enum|explicit|extern|for|friend"
    r"|if|inline|namespace|private|protected|public|return|static|static_assert|struct|switch"
    r"|template|throw|try|typedef|typename|using|virtual|void|while)\b")
DECLARATION = re.compile(r"[A-Za-z_][\w:]*(?:<[^;()]*>)?(?:\s+|\s*[&*]+\s*)[A-Za-z_]\w*\s*[=;{(\[]")


class Mutant:
    """One change: `old` at an offset of a file becomes `new`."""

    def __init__(self, file, text, offset, old, new):
        self.file, self.old, self.new = file, old, new
        start = text.rfind("\n", 0, offset) + 1
        self.line = text.count("\n", 0, offset) + 1
        self.column = offset - start
        self.line_text = text[start:].split("\n", 1)[0]

    def __str__(self):
        old = " ".join(self.old.split())
        return f"{self.file}:{self.line}: {old} -> {self.new}    in: {self.line_text.strip()}"

    def record(self):
        return dict(vars(self))

    @classmethod
    def from_record(cls, record):
        mutant = cls.__new__(cls)
        for key in ("file", "line", "column", "line_text", "old", "new"):
            setattr(mutant, key, record[key])
        return mutant

    def applied(self, text):
        """The text with the change, wherever its line has moved to; None if it is gone."""
        lines = text.split("\n")
        places = [i for i, line in enumerate(lines) if line == self.line_text]
        if not places:
            return None
        at = min(places, key=lambda i: abs(i + 1 - self.line))
        offset = sum(len(line) + 1 for line in lines[:at]) + self.column
        if not text.startswith(self.old, offset):
            return None
        return text[:offset] + self.new + text[offset + len(self.old):]


def tokens(text):
    for match in TOKEN.finditer(text):
        if match.lastgroup in ("comment", "directive") or match[0].isspace():
            continue
        yield match.lastgroup, match[0], match.start()


def other_string(literal, chance):
    """One character of the literal replaced; escapes stay as they are."""
    body = literal[1:-1]
    if not body:
        return '"x"'
    plain = [i for i, c in enumerate(body)
             if c != "\\" and not re.search(r"\\[xu0-9A-Fa-f]*$|\\.$", body[:i + 1])]
    if not plain:
        return None
    at = chance.choice(plain)
    return f'"{body[:at]}{"q" if body[at] != "q" else "z"}{body[at + 1:]}"'


def other_number(number, chance):
    digits = number.rstrip("uUlLf") if not number.lower().startswith("0x") else number.rstrip("uUlL")
    suffix = number[len(digits):]
    step = chance.choice((1, -1))
    if digits.lower().startswith("0x"):
        return hex(max(int(digits.replace("'", ""), 16) + step, 0)) + suffix
    if "e" in digits:
        mantissa, exponent = digits.split("e")
        return f"{mantissa}e{int(exponent) + step}{suffix}"
    if "." in digits:
        places = len(digits.split(".")[1])
        return f"{max(float(digits) + step * 10 ** -places, 0):.{places}f}{suffix}"
    value = int(digits.replace("'", "")) + step
    return (str(value) if value >= 0 else f"({value})") + suffix


def statement_at(found, i, text):
    """The end of the expression statement that begins at token i; None if none does."""
    kind, word, start = found[i]
    if kind not in ("word", "operator") or (kind == "operator" and word not in ("++", "--", "*")):
        return None
    before = found[i - 1][1] if i else "}"
    if before not in (";", "{", "}", ")", "else") or word in ("override", "final", "noexcept"):
        return None
    depth = 0
    for _, symbol, offset in found[i:]:
        depth += symbol in ("(", "{", "[")
        depth -= symbol in (")", "}", "]")
        if depth < 0:
            return None
        if symbol == ";" and depth == 0:
            statement = text[start:offset + 1]
            declares = NO_STATEMENT.match(statement) or DECLARATION.match(statement)
            return None if declares else offset
    return None


def all_mutants(file, text, chance):
    """Every place of the file where a change can be made, with one change each."""
    found = list(tokens(text))
    for i, (kind, word, offset) in enumerate(found):
        around = text[offset - 1:offset] + text[offset + len(word):offset + len(word) + 1]
        new = None
        if kind == "operator":
            joins_texts = "string" in (found[i - 1][0], found[min(i + 1, len(found) - 1)][0])
            if word in BETWEEN_BLANKS and around.isspace() and not (word == "+" and joins_texts):
                new = BETWEEN_BLANKS[word]
            elif word in ANYWHERE:
                new = ANYWHERE[word]
            elif word == "!" and i + 1 < len(found):
                new = ""
        elif kind == "word":
            new = WORDS.get(word)
        elif kind == "number":
            new = other_number(word, chance)
        elif kind == "string":
            new = other_string(word, chance)
        elif kind == "char" and word != "'x'":
            new = "'x'"
        if new is not None and new != word:
            yield Mutant(file, text, offset, word, new)
        end = statement_at(found, i, text)
        if end is not None:
            yield Mutant(file, text, offset, text[offset:end], "")


def draw(root, files, seed):
    """All mutants of the files in an order that the seed gives."""
    chance = random.Random(seed)
    mutants = []
    for file in sorted(files):
        mutants += all_mutants(file, (root / file).read_text(encoding="utf-8"), chance)
    chance.shuffle(mutants)
    return mutants
