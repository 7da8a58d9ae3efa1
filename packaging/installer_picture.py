"""The picture of the installer's first and last page: three joined tables, drawn here so that no picture is stored.

    installer_picture.write(path)       a bitmap of 164 x 314, as the installer's pages want it
"""

import struct

WIDTH, HEIGHT, SCALE = 164, 314, 4  # drawn larger, then averaged, so that edges are smooth
TOP, BOTTOM = (22, 74, 112), (11, 38, 62)
CARD, HEAD, ROW, LINE = (250, 251, 253), (224, 142, 44), (176, 190, 204), (240, 200, 140)
TABLES = [(26, 44, 4), (64, 132, 3), (34, 212, 3)]  # left, top, rows
CARD_WIDTH, HEAD_HEIGHT, ROW_HEIGHT = 74, 12, 11


class Canvas:
    def __init__(self):
        self.width, self.height = WIDTH * SCALE, HEIGHT * SCALE
        self.pixels = []
        for y in range(self.height):
            share = y / self.height
            color = tuple(round(a + (b - a) * share) for a, b in zip(TOP, BOTTOM))
            self.pixels.append([color] * self.width)

    def box(self, left, top, width, height, color):
        x, w = round(left * SCALE), round(width * SCALE)
        for y in range(round(top * SCALE), round((top + height) * SCALE)):
            self.pixels[y][x:x + w] = [color] * w

    def averaged(self, x, y):
        block = [self.pixels[y * SCALE + dy][x * SCALE + dx] for dy in range(SCALE) for dx in range(SCALE)]
        return tuple(sum(channel) // len(block) for channel in zip(*block))


def draw():
    canvas = Canvas()
    # The lines of the joins first: they run behind the tables.
    for (left, top, rows), (next_left, next_top, _) in zip(TABLES, TABLES[1:]):
        start, end = left + CARD_WIDTH - 12, next_top + HEAD_HEIGHT / 2
        bottom = top + HEAD_HEIGHT + rows * ROW_HEIGHT
        middle = (bottom + next_top) / 2
        target = next_left + 14
        canvas.box(start, bottom, 2, middle - bottom + 2, LINE)
        canvas.box(min(start, target), middle, abs(target - start) + 2, 2, LINE)
        canvas.box(target, middle, 2, end - middle, LINE)
    for number, (left, top, rows) in enumerate(TABLES):
        canvas.box(left, top, CARD_WIDTH, HEAD_HEIGHT + rows * ROW_HEIGHT + 3, CARD)
        canvas.box(left, top, CARD_WIDTH, HEAD_HEIGHT, HEAD)
        for row in range(rows):
            width = (46, 30, 52, 38)[(row + number) % 4]
            canvas.box(left + 8, top + HEAD_HEIGHT + row * ROW_HEIGHT + 5, width, 3, ROW)
    return canvas


def write(path):
    canvas = draw()
    stride = (WIDTH * 3 + 3) // 4 * 4
    rows = b""
    for y in reversed(range(HEIGHT)):
        line = b"".join(bytes(reversed(canvas.averaged(x, y))) for x in range(WIDTH))
        rows += line + bytes(stride - len(line))
    header = struct.pack("<2sIHHI", b"BM", 54 + len(rows), 0, 0, 54)
    header += struct.pack("<IiiHHIIiiII", 40, WIDTH, HEIGHT, 1, 24, 0, len(rows), 2835, 2835, 0, 0)
    path.write_bytes(header + rows)
