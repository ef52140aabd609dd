/*
 * timer0.c - the program's clock. Timer 0 overflows once per PASS_MS and its
 * interrupt counts the overflow in uptime; the main loop makes one pass for
 * every count it has not yet served.
 */
#include <8051.h>

#include "board.h"
#include "config.h"

__xdata __at(0x0102) long uptime;

/* The reload's two halves: the timer counts up from here to the overflow. */
#define RELOAD_HIGH ((unsigned char)(TIMER0_RELOAD >> 8))
#define RELOAD_LOW ((unsigned char)(TIMER0_RELOAD & 0xFF))

void timer0_init(void)
{
    uptime = 0;

    /* Mode 1 (16-bit) for timer 0; leave timer 1's half of TMOD alone. */
    TMOD = (TMOD & 0xF0) | 0x01;
    TH0 = RELOAD_HIGH;
    TL0 = RELOAD_LOW;
    ET0 = 1;
    TR0 = 1;
}

void timer0_isr(void) __interrupt(1)
{
    /* Mode 1 does not reload itself. Stopping the timer for the two writes
     * keeps a carry from TL0 out of the new TH0. */
    TR0 = 0;
    TH0 = RELOAD_HIGH;
    TL0 = RELOAD_LOW;
    TR0 = 1;

    uptime++;
}

long timer0_uptime(void)
{
    long now;

    /* uptime is four bytes wide: an interrupt between two of them would
     * give a count that never was. */
    ET0 = 0;
    now = uptime;
    ET0 = 1;
    return now;
}
