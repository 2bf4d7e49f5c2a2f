"""Pairs of CSV files of any width and with cells of any length, to see how time and memory grow with either."""

CHANGED_EVERY = 100  # rows, one cell in each
MOVED_EVERY = 1000  # rows, of which After lacks one and has another in its place
LETTERS = "abcdefghijklmnopqrstuvwxyz0123456789"


def _cell(row, column, length, version=0):
    """Text of that many bytes; from about eight on no two cells are alike."""
    number = (row * 7919 + column * 104729 + version * 15485863) % (36**7)
    digits = []
    for _ in range(min(length, 8)):
        number, digit = divmod(number, 36)
        digits.append(LETTERS[digit])
    text = "".join(digits)
    return text + LETTERS[(row + column) % 26] * (length - len(text))


def _row(row, columns, length, is_after):
    cells = [_cell(row, column, length) for column in range(1, columns)]
    if is_after and row % CHANGED_EVERY == 0 and cells:
        place = row // CHANGED_EVERY % len(cells)
        cells[place] = _cell(row, place + 1, length, version=1)
    return cells


def write(folder, rows, columns, length):
    """Writes before.csv and after.csv: a key column, then columns whose cells have `length` bytes."""
    folder.mkdir(parents=True)
    header = ",".join(["Key", *(f"Column {column}" for column in range(1, columns))])
    with open(folder / "before.csv", "w") as before, open(folder / "after.csv", "w") as after:
        print(header, file=before)
        print(header, file=after)
        for row in range(rows):
            print(",".join([f"K{row}", *_row(row, columns, length, False)]), file=before)
            key = f"N{row}" if row % MOVED_EVERY == 0 else f"K{row}"
            print(",".join([key, *_row(row, columns, length, True)]), file=after)
