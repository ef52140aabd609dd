#include "tests/demo_monkey/crash_note.h"

#include <csignal>
#include <cstdio>
#include <cstring>

#include <unistd.h>

#if defined(__SANITIZE_ADDRESS__)
#define DOCKPANES_SANITIZED 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define DOCKPANES_SANITIZED 1
#endif
#endif

#ifdef DOCKPANES_SANITIZED
#include <sanitizer/common_interface_defs.h>
#endif

namespace {

volatile std::uint32_t g_seed = 0;
volatile long g_step = -1;
const char* const* g_action = nullptr;

// Called from a signal handler: no allocation, one write to the descriptor.
void WriteNote()
{
    char note[256];
    int n = std::snprintf(note, sizeof note, "\nmonkey: died at step %ld (%s); replay with DOCKPANES_MONKEY_SEED=%u\n",
                          static_cast<long>(g_step), g_action ? *g_action : "", static_cast<unsigned>(g_seed));
    if (n < 0) return;
    if (n > static_cast<int>(sizeof note) - 1) n = static_cast<int>(sizeof note) - 1;
    [[maybe_unused]] const ssize_t written = write(STDERR_FILENO, note, static_cast<size_t>(n));
}

#ifndef DOCKPANES_SANITIZED
void OnFatalSignal(int signal)
{
    WriteNote();
    // The handler was installed once: the signal now does what it does by default.
    std::raise(signal);
}
#endif

}  // namespace

void CrashNote::Install(std::uint32_t seed, const char* const& action)
{
    g_seed = seed;
    g_action = &action;
#ifdef DOCKPANES_SANITIZED
    // The sanitizers catch the faults themselves and call this before exiting.
    __sanitizer_set_death_callback(WriteNote);
#else
    struct sigaction handler {};
    handler.sa_handler = OnFatalSignal;
    handler.sa_flags = SA_RESETHAND;
    for (int signal : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT}) sigaction(signal, &handler, nullptr);
#endif
}

void CrashNote::At(long step)
{
    g_step = step;
}

void CrashNote::Forget()
{
    static const char* const kAfterTheRun = "after the run";
    g_action = &kAfterTheRun;
}
