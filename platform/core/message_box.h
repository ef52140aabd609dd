// Message boxes. Every box is recorded (owner, caption, text, flags) so that a
// host or a test can see what the user was told. A queued answer answers a
// box at once. Without one, an interactive box is drawn over its owner and
// waits for the user; with nobody at the screen (the default) it is answered
// with the default button (IDOK for an OK box).
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/core/win_types.h"

constexpr UINT MB_OK = 0x00000000;
constexpr UINT MB_OKCANCEL = 0x00000001;
constexpr UINT MB_YESNO = 0x00000004;
constexpr UINT MB_ICONHAND = 0x00000010;
constexpr UINT MB_ICONERROR = MB_ICONHAND;
constexpr UINT MB_ICONQUESTION = 0x00000020;
constexpr UINT MB_ICONWARNING = 0x00000030;
constexpr UINT MB_ICONINFORMATION = 0x00000040;
constexpr int IDOK = 1;
constexpr int IDCANCEL = 2;
constexpr int IDYES = 6;
constexpr int IDNO = 7;

struct MessageBoxRecord {
    HWND owner = nullptr;
    std::string caption;  // GBK
    std::string text;     // GBK
    UINT type = 0;
};

AFX_API int MessageBoxA(HWND owner, const char* text, const char* caption, UINT type);

namespace MessageBoxes {

using Answer = std::function<int(const MessageBoxRecord&)>;

// Boxes shown so far, oldest first.
AFX_API const std::vector<MessageBoxRecord>& Shown();
AFX_API void Queue(Answer answer);
// Off by default: with nobody at the screen a box must never wait for input.
AFX_API void SetInteractive(bool on);
AFX_API bool IsInteractive();
// Forgets shown boxes and queued answers.
AFX_API void Reset();

}  // namespace MessageBoxes
