/*
 * config.h - the board and the traffic light's timing, in one place.
 *
 * Every time below is counted in passes of the main loop, and the main loop
 * makes one pass per timer-0 period. Change PASS_MS to run the whole
 * junction faster or slower without touching the phase lengths.
 */
#ifndef CONFIG_H
#define CONFIG_H

/* An 11.0592 MHz crystal: the standard UART rates divide it exactly. */
#define FOSC_HZ 11059200UL
/* The 8051 counts one machine cycle every 12 clock periods. */
#define CYCLES_PER_SECOND (FOSC_HZ / 12UL)

/* One pass of the main loop per timer-0 period. */
#define PASS_MS 50UL
#define TIMER0_RELOAD (65536UL - CYCLES_PER_SECOND * PASS_MS / 1000UL)

/* Timer 1 in 8-bit auto-reload mode: 11059200 / 12 / 32 / 3 = 9600 baud. */
#define TIMER1_9600_BAUD 0xFD

/* The three phases, in the order they follow each other. */
#define PHASE_RED 0
#define PHASE_GREEN 1
#define PHASE_YELLOW 2
#define PHASE_COUNT 3

/* How long each phase lasts, in passes; yellow is fixed by law, not set up. */
#define RED_PASSES 10
#define GREEN_PASSES 8
#define YELLOW_PASSES 2
/* The junction's clock offset from its neighbour, in passes. */
#define JUNCTION_OFFSET (-3)

#define LIGHT_COUNT 3    /* lights at the junction, each one phase ahead */
#define TIMING_COUNT 12  /* recent counter values kept for tuning */
#define LOG_BYTES 16     /* phase switches remembered, as a ring */

/* The cabinet's temperature reading creeps up an eighth of a degree a pass
 * and starts again at the bottom of the band when it passes the top. */
#define COOLEST 18.0f
#define WARMEST 26.0f
#define DRIFT 0.125f

/* How long the phases of one light last; a light keeps its own copy. */
struct config {
    unsigned char red_time;    /* passes of red */
    unsigned char green_time;  /* passes of green */
    int offset;                /* passes ahead of the neighbour */
};

#endif
