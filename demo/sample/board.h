/*
 * board.h - the on-chip peripherals the program uses: timer 0 paces the main
 * loop, and the UART (clocked by timer 1) reports each phase switch.
 *
 * Wiring: the lamp drivers of the main light hang on port 1, active low
 * (P1.0 red, P1.1 yellow, P1.2 green); TXD (P3.1) goes to the cabinet's
 * service connector. Timer 1 belongs to the UART and is not free.
 */
#ifndef BOARD_H
#define BOARD_H

/* Timer-0 periods since start-up: the passes the main loop owes. */
extern __xdata __at(0x0102) long uptime;

/* Starts timer 0 in 16-bit mode, interrupting once a pass. */
void timer0_init(void);
/* Timer 0's overflow. SDCC places the vector only when this declaration
 * is seen by the file holding main(), so it lives here. */
void timer0_isr(void) __interrupt(1);
/* The uptime read whole, with the interrupt held off for its four bytes. */
long timer0_uptime(void);

/* 9600 baud, 8 data bits, no parity, one stop bit; transmit only. */
void uart_init(void);
/* Sends one byte, waiting for the previous one to leave. */
void uart_putc(char c);
/* Sends a zero-terminated text from any memory. */
void uart_puts(const char *text);

#endif
