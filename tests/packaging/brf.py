"""Reading files of braille: pages that are measured, and print made of them again."""

import subprocess

CELLS, LINES = 40, 25
TABLES = {"uncontracted": "en-ueb-g1.ctb", "contracted": "en-ueb-g2.ctb"}
# The cells in the order of their dots; the first has none.
ASCII = " A1B'K2L@CIF/MSP\"E3H9O6R^DJG>NTQ,*5<-U8V.%[$+X!&;:4\\0Z7(_?W]#Y)="


def pages_of(brf):
    """The pages of a file as lists of lines, without the numbers of the pages. Every line and page
    has to fit."""
    pages = []
    for number, page in enumerate(brf.split("\f"), 1):
        assert page.endswith("\r\n"), f"page {number} does not end with a line"
        lines = page.split("\r\n")[:-1]
        assert len(lines) == LINES, f"page {number} has {len(lines)} lines"
        for line in lines:
            assert len(line) <= CELLS and set(line) <= set(ASCII), f"page {number}: {line!r}"
        shown = "".join("JABCDEFGHI"[int(digit)] for digit in str(number))
        assert lines[-1] == f"#{shown}".rjust(CELLS), f"page {number} says {lines[-1]!r}"
        pages.append(lines[:-1])
    return pages


def back_translated(pages, form):
    """The print that the lines stand for."""
    braille = "\n".join(line.strip() for page in pages for line in page if line.strip())
    dots = "".join(chr(0x2800 + ASCII.index(cell)) if cell in ASCII else cell for cell in braille)
    done = subprocess.run(["lou_translate", "--backward", f"unicode.dis,{TABLES[form]}"],
                          input=dots + "\n", capture_output=True, text=True, check=True)
    return done.stdout
