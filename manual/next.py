"""A small part of a ZX Spectrum Next: what the manual's game needs, and nothing else.

The processor knows the instructions of that game alone and stops at any other. The picture is drawn
from the registers, ports and memory that the game wrote.
"""

SCREEN = (320, 256)  # pixels of the tile map and of sprites over the border
BANK_FIVE = 0x4000   # where the tile map's memory begins


class Machine:
    def __init__(self, program, start):
        self.memory = bytearray(0x10000)
        self.memory[start:start + len(program)] = program
        self.pc = start
        self.sp = 0
        self.reg = dict(a=0, b=0, c=0, d=0, e=0, h=0, l=0)
        self.zero = False
        self.registers = {0x4B: 0xE3, 0x4C: 15}
        self.palettes = {}  # entries by palette number, each a list of two bytes
        self.half = None    # the first of two bytes of a colour
        self.patterns = bytearray()
        self.attributes = bytearray()

    def byte(self):
        value = self.memory[self.pc]
        self.pc = self.pc + 1 & 0xFFFF
        return value

    def word(self):
        return self.byte() | self.byte() << 8

    def pair(self, names):
        return self.reg[names[0]] << 8 | self.reg[names[1]]

    def set_pair(self, names, value):
        self.reg[names[0]], self.reg[names[1]] = value >> 8 & 255, value & 255

    def run(self, most=10_000_000):
        """Runs until a jump leads to itself."""
        for _ in range(most):
            at = self.pc
            self.step(self.byte())
            if self.pc == at:
                return
        raise AssertionError("the program does not come to rest")

    def step(self, code):
        if code == 0xF3:  # di
            return
        if code == 0x31:
            self.sp = self.word()
        elif code in (0x01, 0x11, 0x21):
            self.set_pair({0x01: "bc", 0x11: "de", 0x21: "hl"}[code], self.word())
        elif code in (0x3E, 0x16):
            self.reg[{0x3E: "a", 0x16: "d"}[code]] = self.byte()
        elif code in (0x7A, 0x7E):
            self.reg["a"] = self.reg["d"] if code == 0x7A else self.memory[self.pair("hl")]
        elif code in (0xAF, 0xB3):
            self.reg["a"] = 0 if code == 0xAF else self.reg["a"] | self.reg["e"]
            self.zero = self.reg["a"] == 0
        elif code in (0x3D, 0x15):
            name = {0x3D: "a", 0x15: "d"}[code]
            self.reg[name] = self.reg[name] - 1 & 255
            self.zero = self.reg[name] == 0
        elif code in (0x23, 0x1B, 0x09):
            name = {0x23: "hl", 0x1B: "de", 0x09: "hl"}[code]
            add = {0x23: 1, 0x1B: -1, 0x09: self.pair("bc")}[code]
            self.set_pair(name, self.pair(name) + add & 0xFFFF)
        elif code in (0x18, 0x20):
            way = self.byte()
            if code == 0x18 or not self.zero:
                self.pc = self.pc + way - (256 if way > 127 else 0) & 0xFFFF
        elif code == 0xCD:
            target = self.word()
            self.sp -= 2
            self.memory[self.sp:self.sp + 2] = self.pc.to_bytes(2, "little")
            self.pc = target
        elif code == 0xC9:
            self.pc = int.from_bytes(self.memory[self.sp:self.sp + 2], "little")
            self.sp += 2
        elif code == 0xED:
            self.extended(self.byte())
        else:
            raise AssertionError(f"unknown instruction {code:02x} before {self.pc:04x}")

    def extended(self, code):
        if code == 0x91:
            number = self.byte()
            self.write_register(number, self.byte())
        elif code == 0x92:
            self.write_register(self.byte(), self.reg["a"])
        elif code == 0x79:
            self.write_port(self.pair("bc"), self.reg["a"])
        elif code == 0xB0:
            source, target, count = self.pair("hl"), self.pair("de"), self.pair("bc")
            for i in range(count):
                self.memory[target + i] = self.memory[source + i]
            self.set_pair("hl", source + count)
            self.set_pair("de", target + count)
            self.set_pair("bc", 0)
        else:
            raise AssertionError(f"unknown instruction ed {code:02x}")

    def write_register(self, number, value):
        if number == 0x44:
            if self.half is None:
                self.half = value
                return
            palette = self.palettes.setdefault(self.registers[0x43] >> 4 & 7, {})
            palette[self.registers[0x40]] = (self.half, value)
            self.half = None
            value = self.registers[0x40] + 1 & 255
            number = 0x40
        self.registers[number] = value

    def write_port(self, port, value):
        if port == 0x303B:
            assert value == 0
        elif port & 0xFF == 0x5B:
            self.patterns.append(value)
        elif port & 0xFF == 0x57:
            self.attributes.append(value)
        else:
            raise AssertionError(f"unknown port {port:04x}")

    def colour(self, palette, index):
        """Levels 0 to 7 of red, green and blue."""
        first, second = self.palettes[palette][index]
        return first >> 5, first >> 2 & 7, (first & 3) << 1 | second & 1

    def picture(self):
        """Rows of colours; None where nothing is drawn."""
        rows = [[None] * SCREEN[0] for _ in range(SCREEN[1])]
        assert self.registers[0x6B] == 0x83, "tile map on, 40 by 32, 512 tiles"
        for y in range(SCREEN[1]):
            for x in range(SCREEN[0]):
                rows[y][x] = self.tile_pixel(x, y)
        if self.registers[0x15] & 1:
            for at in range(0, len(self.attributes), 4):
                self.draw_sprite(rows, self.attributes[at:at + 4])
        return rows

    def tile_pixel(self, x, y):
        cell = BANK_FIVE + (self.registers[0x6E] & 63) * 256 + (y // 8 * 40 + x // 8) * 2
        low, flags = self.memory[cell], self.memory[cell + 1]
        inner_x, inner_y = x % 8, y % 8
        if flags & 8:
            inner_x = 7 - inner_x
        if flags & 4:
            inner_y = 7 - inner_y
        if flags & 2:  # a quarter clockwise, before the other two
            inner_x, inner_y = inner_y, 7 - inner_x
        tile = low | (flags & 1) << 8
        data = BANK_FIVE + (self.registers[0x6F] & 63) * 256 + tile * 32
        pair = self.memory[data + inner_y * 4 + inner_x // 2]
        value = pair >> 4 if inner_x % 2 == 0 else pair & 15
        if value == self.registers[0x4C] & 15:
            return None
        return self.colour(3, value | flags & 0xF0)

    def draw_sprite(self, rows, attributes):
        left, top, flags, pattern = attributes
        if not pattern & 0x80:
            return
        left |= (flags & 1) << 8
        data = self.patterns[(pattern & 63) * 256:(pattern & 63) * 256 + 256]
        for i, value in enumerate(data):
            x, y = left + i % 16, top + i // 16
            if value != self.registers[0x4B] and x < SCREEN[0] and y < SCREEN[1]:
                rows[y][x] = self.colour(2, (value + (flags & 0xF0)) & 255)
