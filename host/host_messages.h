// Private window messages and commands between the panes and the host. A host
// includes this header; all messages are sent synchronously on the host's
// user-interface thread, and texts are zero-terminated GBK.
#pragma once

#include "platform/core/messages.h"
#include "platform/text/path_buffer.h"
#include "watch/debug_protocol.h"

// View or pane -> main frame: lParam is the address of an AppData pointer the
// host fills in (or leaves null).
constexpr UINT UWM_GET_APP_DATA = 1233;
constexpr UINT UWM_WATCH_ADD_EXPRESSION = 1241;
constexpr UINT UWM_WATCH_REFRESH = 1276;
// Host -> views: the pane font changed.
constexpr UINT UWM_DOCK_FONT_CHANGED = 1280;
constexpr UINT UWM_GRID_EDIT_DONE = 1324;
constexpr UINT UWM_GRID_LIST_DONE = 1325;
constexpr UINT UWM_GRID_INPUT = 1326;
constexpr UINT UWM_GRID_FILL_CHILDREN = 1327;
constexpr UINT UWM_MSGVIEW_APPEND = 1425;
constexpr UINT UWM_MSGVIEW_PREPEND = 1430;
// UWM_DEBUG_REQUEST and its records: watch/debug_protocol.h.
constexpr UINT UWM_WATCH_EXPRESSIONS = 1439;
constexpr UINT UWM_WATCH_CLEAR = 1440;
constexpr UINT UWM_EDITOR_KILLFOCUS = 1441;
constexpr UINT UWM_WATCH_FORMAT_VALUE = 1442;
// View -> main frame: wParam the file's full path, lParam the line.
constexpr UINT UWM_GOTO_SOURCE = 1531;
// Host -> view, the same number as UWM_GOTO_SOURCE: refresh from the host's data.
constexpr UINT UWM_REFRESH_VIEW = 1531;
// View -> main frame: wParam a kPathBytes buffer for the project file's path.
constexpr UINT UWM_GET_PROJECT_PATH = 1539;
constexpr UINT UWM_FUNCLIST_SELECTED = 1543;
constexpr UINT UWM_MSGVIEW_GOTO = 1544;
constexpr UINT UWM_FUNCLIST_SHOW_FILE = 1619;
constexpr UINT UWM_FUNCLIST_SEEK_LINE = 1620;

// Commands (WM_COMMAND, lParam 0) the views send the main frame.
constexpr UINT ID_HOST_CLEAR_ALL_BOOKMARKS = 32014;
constexpr UINT ID_HOST_CLEAR_ALL_BREAKPOINTS = 32194;
