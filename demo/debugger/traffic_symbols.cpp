#include "demo/debugger/traffic_symbols.h"

#include "demo/debugger/traffic_layout.h"
#include "demo/debugger/type_codes.h"
#include "watch/debug_protocol.h"

namespace Traffic {

SymbolTable Symbols()
{
    SymbolTable table;
    TypeTable& types = table.Types();
    const TypeId uchar = types.Scalar(WT_UCHAR);
    const TypeId integer = types.Scalar(WT_INT);
    const TypeId config = types.Record(WT_STRUCT, {{"red_time", uchar}, {"green_time", uchar}, {"offset", integer}});
    const TypeId light = types.Record(WT_STRUCT, {{"state", uchar}, {"lamps", types.Array(uchar, kPhaseCount)}, {"cfg", config}});
    const TypeId reading = types.Record(WT_UNION, {{"raw", types.Scalar(WT_UINT)}, {"bytes", types.Array(uchar, 2)}});
    const TypeId lightPointer = types.Pointer(light, WS_XDATA);

    const Symbol symbols[] = {
        {"red", types.Scalar(WT_BIT), WS_BIT, kRed},
        {"yellow", types.Scalar(WT_BIT), WS_BIT, kYellow},
        {"green", types.Scalar(WT_BIT), WS_BIT, kGreen},
        {"phase", uchar, WS_DATA, kPhase},
        {"ticks", integer, WS_DATA, kTicks},
        {"cursor", types.Pointer(uchar, WS_XDATA), WS_DATA, kCursor},
        {"label", types.Pointer(types.Scalar(WT_CHAR), WS_NONE), WS_DATA, kLabel},
        {"sensor", reading, WS_DATA, kSensor},
        {"current", lightPointer, WS_DATA, kCurrent},
        {"fault", lightPointer, WS_DATA, kFault},
        {"mode", types.Scalar(WT_CHAR), WS_IDATA, kMode},
        {"faults", uchar, WS_PDATA, kFaults},
        {"counter", types.Scalar(WT_UINT), WS_XDATA, kCounter},
        {"uptime", types.Scalar(WT_LONG), WS_XDATA, kUptime},
        {"total", types.Scalar(WT_ULONG), WS_XDATA, kTotal},
        {"temperature", types.Scalar(WT_FLOAT), WS_XDATA, kTemperature},
        {"cfg", config, WS_XDATA, kCfg},
        {"timings", types.Array(integer, kTimingCount), WS_XDATA, kTimings},
        {"lights", types.Array(light, kLightCount), WS_XDATA, kLights},
        {"log", types.Array(uchar, kLogBytes), WS_XDATA, kLog},
        {"lamp_mask", types.Array(uchar, kPhaseCount), WS_CODE, kLampMask},
        {"name", types.Array(types.Scalar(WT_CHAR), 8), WS_CODE, kName},
    };
    for (const Symbol& symbol : symbols) table.Add(symbol);
    return table;
}

}  // namespace Traffic
