// Where the sample traffic-light program keeps its variables: the symbol
// table describes them and the simulated program updates them, both from here.
#pragma once

#include <cstdint>

namespace Traffic {

// Bit space.
constexpr std::uint32_t kRed = 0x00;
constexpr std::uint32_t kYellow = 0x01;
constexpr std::uint32_t kGreen = 0x02;

// Internal RAM, direct (data).
constexpr std::uint32_t kPhase = 0x30;    // unsigned char: 0 red, 1 green, 2 yellow
constexpr std::uint32_t kTicks = 0x31;    // int
constexpr std::uint32_t kCursor = 0x33;   // unsigned char xdata *: next byte of the log
constexpr std::uint32_t kLabel = 0x35;    // char *: generic, to the name in code
constexpr std::uint32_t kSensor = 0x38;   // union reading
constexpr std::uint32_t kCurrent = 0x3A;  // struct light xdata *: the light now red
constexpr std::uint32_t kFault = 0x3C;    // struct light xdata *: none, null

// Internal RAM, indirect (idata), and the paged page (pdata).
constexpr std::uint32_t kMode = 0x80;     // char
constexpr std::uint32_t kFaults = 0x10;   // unsigned char

// External RAM (xdata).
constexpr std::uint32_t kCounter = 0x0100;      // unsigned int: steps left in the phase
constexpr std::uint32_t kUptime = 0x0102;       // long
constexpr std::uint32_t kTotal = 0x0106;        // unsigned long
constexpr std::uint32_t kTemperature = 0x010A;  // float
constexpr std::uint32_t kCfg = 0x0110;          // struct config
constexpr std::uint32_t kTimings = 0x0120;      // int[12]
constexpr std::uint32_t kLights = 0x0140;       // struct light[3]
constexpr std::uint32_t kLog = 0x0160;          // unsigned char[16]

// Code.
constexpr std::uint32_t kLampMask = 0x0800;  // unsigned char[3]
constexpr std::uint32_t kName = 0x0810;      // char[8]

// struct config { unsigned char red_time, green_time; int offset; }
constexpr std::uint32_t kRedTime = 0;
constexpr std::uint32_t kGreenTime = 1;
constexpr std::uint32_t kOffset = 2;
// struct light { unsigned char state; unsigned char lamps[3]; struct config cfg; }
constexpr std::uint32_t kLightBytes = 8;
constexpr std::uint32_t kState = 0;
constexpr std::uint32_t kLamps = 1;
constexpr std::uint32_t kLightCfg = 4;

constexpr std::uint32_t kLightCount = 3;
constexpr std::uint32_t kTimingCount = 12;
constexpr std::uint32_t kLogBytes = 16;
constexpr std::uint32_t kPhaseCount = 3;

}  // namespace Traffic
