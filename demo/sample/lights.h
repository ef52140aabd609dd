/*
 * lights.h - the junction's lights: which phase runs, how long it has left,
 * and what each light shows. lights.c owns everything declared here.
 */
#ifndef LIGHTS_H
#define LIGHTS_H

#include "config.h"

/* One light of the junction: its phase, its three lamps (red, yellow,
 * green; 1 lit) and the timing it was set up with. */
struct light {
    unsigned char state;
    unsigned char lamps[PHASE_COUNT];
    struct config cfg;
};

/* The variables live at fixed addresses (see lights.c); the declarations
 * repeat them because SDCC holds an address to be part of the type. */
extern __bit __at(0x00) red;  /* the main light's lamps, one bit each */
extern __bit __at(0x01) yellow;
extern __bit __at(0x02) green;

extern __data __at(0x30) unsigned char phase;            /* PHASE_RED, _GREEN or _YELLOW */
extern unsigned char __xdata * __data __at(0x33) cursor;  /* where the log's next byte goes */
extern const char * __data __at(0x35) label;              /* the junction's name, for display */
extern struct light __xdata * __data __at(0x3A) current;  /* the light now red */
extern struct light __xdata * __data __at(0x3C) fault;    /* a light with a broken lamp, or 0 */

extern __xdata __at(0x0100) unsigned int counter;  /* passes left in the phase */
extern __xdata __at(0x0110) struct config cfg;     /* the junction's timing */
extern __xdata __at(0x0140) struct light lights[LIGHT_COUNT];
extern __xdata __at(0x0160) unsigned char log[LOG_BYTES];  /* phases switched to, a ring */
extern __code __at(0x0800) const unsigned char lamp_mask[PHASE_COUNT];
extern __code __at(0x0810) const char name[8];

/* Sets up the timing and shows the first red phase. */
void lights_init(void);
/* Counts one pass off the phase, and switches to the next when it is over. */
void lights_pass(void);
/* The phase's name as the UART prints it. */
const char *phase_name(unsigned char which);

#endif
