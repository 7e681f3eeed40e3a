"""The rules that scripts/check-rules checks, one module a subject.

Each module has check(project), which yields breaches as texts "FILE:LINE: RULE".
"""
