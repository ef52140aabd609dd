/*
 * uart.c - a transmit-only serial port for the phase names. Timer 1 in 8-bit
 * auto-reload mode sets the baud rate; the program never receives, so the
 * receiver stays off and no interrupt is used.
 */
#include <8051.h>

#include "board.h"
#include "config.h"

void uart_init(void)
{
    /* Timer 1 in mode 2 (8-bit auto-reload); timer 0's half of TMOD kept. */
    TMOD = (TMOD & 0x0F) | 0x20;
    TH1 = TIMER1_9600_BAUD;
    TL1 = TIMER1_9600_BAUD;
    TR1 = 1;

    /* Serial mode 1: 8 data bits, baud from timer 1, receiver disabled. */
    SCON = 0x40;
    /* Report the transmitter idle, so the first byte need not wait. */
    TI = 1;
}

void uart_putc(char c)
{
    while (!TI)
        ;
    TI = 0;
    SBUF = c;
}

void uart_puts(const char *text)
{
    while (*text)
        uart_putc(*text++);
}
