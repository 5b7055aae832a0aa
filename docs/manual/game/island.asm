; Shows the island on a ZX Spectrum Next: palette, tiles, tile map and sprites as Tessaril exports them.
;
;   z80-unknown-coff-as -march=z80n -o island.o island.asm
;   z80-unknown-coff-ld -Ttext=0x8000 -e start -o island.out island.o
;   z80-unknown-coff-objcopy -O binary island.out island.bin
;
; island.bin is loaded at 32768 (8000h) and started there.

MAP_WIDTH   equ 64              ; cells of the exported map
VIEW_X      equ 10              ; the cell that is shown in the upper left corner
VIEW_Y      equ 8
TILES       equ 396             ; tiles that the map uses
TILE_DATA   equ 0x4000          ; both lie in the 16 KiB from 4000h on, which the tile map can see
TILE_MAP    equ 0x7200

        .text
        .globl start
start:
        di
        ld   sp, stack_top

        nextreg 0x07, 3         ; 28 MHz
        nextreg 0x68, 0x80      ; the ULA's own picture off
        nextreg 0x4A, 0         ; black where nothing is drawn

        ; The tile map's palette. It is written to register 44h byte by byte, as it stands in the file.
        nextreg 0x43, 0x30      ; first palette of the tile map
        nextreg 0x40, 0         ; from entry 0 on
        ld   hl, island_palette
        call send_palette

        ; The sprites' palette.
        nextreg 0x43, 0x20      ; first palette of the sprites
        nextreg 0x40, 0
        ld   hl, folk_palette
        call send_palette

        ; 32 bytes a tile.
        ld   hl, island_tiles
        ld   de, TILE_DATA
        ld   bc, TILES * 32
        ldir

        ; A window of 40 by 32 cells out of the map, two bytes a cell.
        ld   hl, island_map + (VIEW_Y * MAP_WIDTH + VIEW_X) * 2
        ld   de, TILE_MAP
        ld   a, 32
next_row:
        ld   bc, 40 * 2
        ldir
        ld   bc, (MAP_WIDTH - 40) * 2
        add  hl, bc
        dec  a
        jr   nz, next_row

        nextreg 0x6E, 0x32      ; the map is at 4000h + 32h * 100h
        nextreg 0x6F, 0         ; the tiles are at 4000h
        nextreg 0x4C, 0         ; pixel value 0 is transparent
        nextreg 0x6B, 0x83      ; tile map on, 40 by 32, 512 tiles, over the ULA

        ; Two sprite patterns of 256 bytes.
        ld   bc, 0x303B         ; choose pattern and sprite 0
        xor  a
        out  (c), a
        ld   hl, folk_sprites
        ld   de, 2 * 256
send_pattern:
        ld   a, (hl)
        ld   bc, 0x005B
        out  (c), a
        inc  hl
        dec  de
        ld   a, d
        or   e
        jr   nz, send_pattern

        ; Three sprites, four bytes each.
        ld   hl, sprites
        ld   d, 3 * 4
send_sprite:
        ld   a, (hl)
        ld   bc, 0x0057
        out  (c), a
        inc  hl
        dec  d
        jr   nz, send_sprite

        nextreg 0x4B, 3         ; sprite pixel value 3 is transparent
        nextreg 0x15, 0x03      ; sprites on, over the border too

forever:
        jr   forever

; Sends 256 entries of two bytes from HL to the palette that is chosen.
send_palette:
        ld   de, 512
send_entry:
        ld   a, (hl)
        nextreg 0x44, a
        inc  hl
        dec  de
        ld   a, d
        or   e
        jr   nz, send_entry
        ret

; x, y, palette offset * 16, 80h for visible + number of the pattern. The island's pixel (166, 202) is
; shown at (166 - VIEW_X * 8, 202 - VIEW_Y * 8).
sprites:
        .byte 166 - VIEW_X * 8, 202 - VIEW_Y * 8, 0x00, 0x80
        .byte 290 - VIEW_X * 8, 166 - VIEW_Y * 8, 0x10, 0x81
        .byte 262 - VIEW_X * 8, 240 - VIEW_Y * 8, 0x20, 0x80

island_palette: .incbin "Saltmere_palette.bin"
island_tiles:   .incbin "Saltmere_tiles.nxt", 0, TILES * 32
island_map:     .incbin "Saltmere_tilemap.bin"
folk_palette:   .incbin "folk.pal"
folk_sprites:   .incbin "folk.spr"

        .space 64
stack_top:
