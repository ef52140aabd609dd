/*
 * main.c - a traffic light for one junction on an 8051.
 *
 * Start-up sets up the lights, the UART and timer 0. After that the main
 * loop makes one pass per timer-0 period: it keeps the statistics, follows
 * the cabinet's temperature, and lets the lights count down their phase.
 * Between passes the CPU idles until the next interrupt.
 */
#include <8051.h>

#include "board.h"
#include "config.h"
#include "lights.h"

/* A sensor reading, as one word or as the two bytes the ADC delivers. */
union reading {
    unsigned int raw;
    unsigned char bytes[2];
};

__data __at(0x31) int ticks;               /* passes made since start-up */
__data __at(0x38) union reading sensor;    /* the last light-level reading */
__idata __at(0x80) char mode;              /* 'A' automatic, 'M' manual */
__pdata __at(0x10) unsigned char faults;   /* lamp faults seen */

__xdata __at(0x0106) unsigned long total;  /* sum of ticks over all passes */
__xdata __at(0x010A) float temperature;    /* the cabinet, in degrees Celsius */
__xdata __at(0x0120) int timings[TIMING_COUNT];  /* counter, pass by pass */

/* The ADC's base reading; the pass count stands in for the light level. */
#define SENSOR_BASE 0x0200

static void statistics_init(void)
{
    unsigned char i;

    ticks = 0;
    total = 123456UL;  /* carried over from the previous installation */
    for (i = 0; i < TIMING_COUNT; i++)
        timings[i] = 5 * i;
    sensor.raw = SENSOR_BASE;
    temperature = 21.5f;
    mode = 'A';
    faults = 0;
}

/* One pass of the main loop; timer 0 has already counted it in uptime. */
static void pass(void)
{
    ticks++;
    /* ticks is read as the unsigned count it is, also past 32767. */
    total += (unsigned int)ticks;
    sensor.raw = SENSOR_BASE + (((unsigned int)ticks * 3) & 0xFF);

    temperature += DRIFT;
    if (temperature > WARMEST)
        temperature = COOLEST;

    timings[(unsigned int)ticks % TIMING_COUNT] = counter;
    lights_pass();
}

void main(void)
{
    long served;

    /* pdata is the first page of xdata; P2 selects the page and comes out
     * of reset as 0xFF. */
    P2 = 0;
    statistics_init();
    uart_init();
    lights_init();
    uart_puts(name);
    uart_puts(" ");
    uart_puts(phase_name(phase));
    uart_puts("\r\n");

    timer0_init();
    served = 0;
    EA = 1;

    for (;;) {
        /* Catch up on every period, should a pass ever take longer. */
        while (served != timer0_uptime()) {
            served++;
            pass();
        }
        PCON |= IDL;  /* sleep until the next interrupt */
    }
}
