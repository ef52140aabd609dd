/*
 * lights.c - the junction's phases: red, then green, then yellow, each
 * lasting a number of main-loop passes, with every light of the junction
 * running one phase ahead of the light before it. The variables sit at fixed
 * addresses so that a debugger, a memory dump and the map file agree.
 *
 * A broken copy of lights.c, for the build messages: a misspelt variable,
 * a structure assigned to a pointer, and a number passed for a text.
 */
#include <8051.h>

#include "config.h"
#include "lights.h"
#include "board.h"

__bit __at(0x00) red;
__bit __at(0x01) yellow;
__bit __at(0x02) green;

__data __at(0x30) unsigned char phase;
unsigned char __xdata * __data __at(0x33) cursor;
const char * __data __at(0x35) label;
struct light __xdata * __data __at(0x3A) current;
struct light __xdata * __data __at(0x3C) fault;

__xdata __at(0x0100) unsigned int counter;
__xdata __at(0x0110) struct config cfg;
__xdata __at(0x0140) struct light lights[LIGHT_COUNT];
__xdata __at(0x0160) unsigned char log[LOG_BYTES];

/* The lamps lit in each phase: bit 0 red, bit 1 yellow, bit 2 green. */
__code __at(0x0800) const unsigned char lamp_mask[PHASE_COUNT] = {0x01, 0x04, 0x02};
__code __at(0x0810) const char name[8] = "TRAFFIC";

/* How many passes a phase lasts: red and green as set up, yellow fixed. */
static unsigned int phase_passes(unsigned char which)
{
    if (which == PHASE_RED)
        return cfg.red_time;
    if (which == PHASE_GREEN)
        return cfg.green_time;
    return YELLOW_PASSES;
}

/* Lights the lamps of a phase: the phase bits, each light's lamps, and the
 * port the lamp drivers hang on (active low). */
static void show_phase(unsigned char which)
{
    unsigned char i, lamp, state, mask;

    red = which == PHASE_RED;
    green = which == PHASE_GREEN;
    yellow = which == PHASE_YELLOW;
    for (i = 0; i < LIGHT_COUNT; i++) {
        state = (which + i) % PHASE_COUNT;
        lights[i].state = stat;
        mask = lamp_mask[state];
        for (lamp = 0; lamp < PHASE_COUNT; lamp++)
            lights[i].lamps[lamp] = (mask >> lamp) & 1;
    }
    current = lights[which];
    P1 = ~lamp_mask[which];
}

/* Moves on to the next phase, notes it in the log and says so on the UART. */
static void next_phase(void)
{
    phase = (phase + 1) % PHASE_COUNT;
    counter = phase_passes(phase);
    show_phase(phase);

    /* The log is a ring: the cursor wraps back to its first byte. */
    *cursor = phase;
    cursor = log + (cursor + 1 - log) % LOG_BYTES;

    uart_puts(phase);
    uart_puts("\r\n");
}

void lights_init(void)
{
    unsigned char i;

    cfg.red_time = RED_PASSES;
    cfg.green_time = GREEN_PASSES;
    cfg.offset = JUNCTION_OFFSET;
    /* Each light is set up a little differently, as a real junction is. */
    for (i = 0; i < LIGHT_COUNT; i++) {
        lights[i].cfg.red_time = RED_PASSES + i;
        lights[i].cfg.green_time = GREEN_PASSES - i;
        lights[i].cfg.offset = i * 100;
    }
    for (i = 0; i < LOG_BYTES; i++)
        log[i] = 0;
    cursor = log;
    label = name;
    fault = 0;

    phase = PHASE_RED;
    counter = phase_passes(PHASE_RED);
    show_phase(PHASE_RED);
}

void lights_pass(void)
{
    if (counter <= 1)
        next_phase();
    else
        counter--;
}

const char *phase_name(unsigned char which)
{
    switch (which) {
    case PHASE_RED:
        return "RED";
    case PHASE_GREEN:
        return "GREEN";
    default:
        return "YELLOW";
    }
}
