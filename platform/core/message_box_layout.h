// A drawn message box's parts: its buttons by type, its text wrapped to
// lines, and where everything sits, in client coordinates of a box placed
// in screen coordinates over its owner.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/core/message_box.h"

struct MessageBoxButton {
    int id = 0;
    std::string label;  // GBK
    UINT key = 0;       // the letter key that presses it; 0 for none
    CRect rect;         // client coordinates
};

struct MessageBoxLayout {
    CRect window;     // screen coordinates
    CRect caption;    // the title strip
    CRect icon;       // empty when the box has no icon
    CRect text;       // the wrapped lines, kLineHeight apart from its top
    std::vector<std::string> lines;
    std::vector<MessageBoxButton> buttons;
    int defaultButton = 0;  // index: focused when the box opens
    int cancelButton = 0;   // index: what Escape presses
};

namespace MessageBoxGeometry {

constexpr int kLineHeight = 16;     // the 12 px dialog font plus leading
constexpr int kMaxTextWidth = 360;  // longer lines are hard to read at a glance
constexpr int kMaxLines = 40;       // a box taller than a screen shows nothing more

// Pixel width of a run of GBK text.
using TextWidth = std::function<int(std::string_view)>;

// The width of text in the dialog font the box is drawn in.
AFX_API int DialogFontWidth(std::string_view text);

// Lines no wider than maxWidth: a break at "\n" ("\r\n"), else after a space
// or on either side of a double-byte character; a word wider than a line is
// cut between characters, never inside one. At most kMaxLines lines.
AFX_API std::vector<std::string> WrapText(std::string_view text, int maxWidth, const TextWidth& width);

// The buttons of a box type, labels and ids, without places: OK, OK/Cancel
// or Yes/No; any other type is an OK box.
AFX_API std::vector<MessageBoxButton> ButtonsOf(UINT type, int* defaultButton, int* cancelButton);

// The whole box for a record, centred over `over` (screen coordinates; an
// empty rectangle centres it on a default screen).
AFX_API MessageBoxLayout LayOut(const MessageBoxRecord& record, const CRect& over, const TextWidth& width);

}  // namespace MessageBoxGeometry
