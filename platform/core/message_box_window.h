// The drawn message box: a top-level popup centred over its owner that holds
// the mouse and keys in a nested input loop until one of its buttons is
// pressed: by a click, by Enter or Space (the focused button, the default one
// until Tab or an arrow key moves the focus), by Escape (Cancel, No, or OK
// alone) or by a button's letter.
#pragma once

#include "platform/core/message_box_layout.h"
#include "platform/core/wnd.h"

class MessageBoxWindow : public CWnd {
public:
    explicit MessageBoxWindow(MessageBoxRecord record) : m_record(std::move(record)) {}
    ~MessageBoxWindow() override;

    // Shows the box and waits for the user; the id of the button pressed.
    // An event source that runs dry presses the Escape button.
    int Run();

protected:
    DECLARE_MESSAGE_MAP()
    void OnPaint();

private:
    class InputLoop;

    void OnKey(UINT key);
    void OnMouse(UINT message, POINT screen);
    // The button under a screen point; -1 for none.
    int ButtonAt(POINT screen) const;
    void MoveFocus(int step);
    void Press(int index);
    void PaintButton(CDC& dc, int index) const;
    void PaintIcon(CDC& dc) const;

    MessageBoxRecord m_record;
    MessageBoxLayout m_layout;
    int m_focus = 0;     // the button Enter presses, drawn with a thicker frame
    int m_pressed = -1;  // the button the mouse went down on
    int m_result = 0;    // the id pressed; 0 while the box is open
};

// Shows a box for the record and returns the id of the button pressed.
AFX_API int ShowMessageBoxWindow(const MessageBoxRecord& record);
