#!/bin/sh
# Builds the sample traffic light with SDCC: each .c file to its own object,
# then one link to traffic.ihx. Everything is written into the folder given
# as the argument, never next to the sources.
#
#   sh demo/sample/build.sh build/sample
set -eu

if [ $# -ne 1 ]; then
    echo "usage: $0 OUTPUT_DIR" >&2
    exit 2
fi

SOURCES=$(cd "$(dirname "$0")" && pwd)
OUT=$1
mkdir -p "$OUT"

# The linker does not reserve variables placed with __at. The compiler's own
# data stays below the bit-addressable bytes (0x20), and the stack, which
# follows the idata segment, starts above the fixed variables (0x30-0x3D,
# mode at 0x80), so pushes never reach them.
# The program's code goes above the constants fixed at 0x0800-0x0817; only
# the vectors and start-up stay below them.
# Plain char is signed, as the simulated target's model of the program takes
# it (SDCC makes it unsigned by default).
CFLAGS="-mmcs51 --model-small --std-sdcc11 --fsigned-char"
LDFLAGS="--idata-loc 0x90 -Wl-bCSEG=0x0818 --xram-size 0x0800 --code-size 0x2000"

OBJECTS=""
for source in main lights timer0 uart; do
    sdcc $CFLAGS -I"$SOURCES" -c "$SOURCES/$source.c" -o "$OUT/$source.rel"
    OBJECTS="$OBJECTS $OUT/$source.rel"
done
# main.rel first: the linker takes the reset and interrupt vectors from it.
sdcc $CFLAGS $LDFLAGS $OBJECTS -o "$OUT/traffic.ihx"
echo "built $OUT/traffic.ihx"
