// Ids of the library's resources (res/dockpanes.rc) and of the commands its
// menus carry.
#pragma once

// Menus.
constexpr unsigned IDR_BOOKMARK_MENU = 20001;
constexpr unsigned IDR_BREAKPOINT_MENU = 20002;
constexpr unsigned IDR_FUNCLIST_MENU = 20004;
constexpr unsigned IDR_MESSAGE_MENU = 20005;
constexpr unsigned IDR_WATCH_MENU = 20009;

// The image strip of the tree views: nine images of 18 x 17 pixels.
constexpr unsigned IDB_TREE_IMAGES = 599;
constexpr int kTreeImageWidth = 18;
constexpr int kTreeImageGrowth = 4;
constexpr int kImageFunction = 1;
constexpr int kImageBookmark = 4;
constexpr int kImageBreakpointActive = 6;
constexpr int kImageBreakpointInactive = 7;

// Format icons of grid cells.
constexpr unsigned IDI_FORMAT_HEX = 20006;
constexpr unsigned IDI_FORMAT_BIN = 20007;
constexpr unsigned IDI_FORMAT_DEC = 20008;

// Commands of the views' menus.
constexpr unsigned ID_EDIT_CLEAR_ALL_BOOKMARK = 32014;
constexpr unsigned ID_EDIT_CLEAR_ALL_BKPT = 32032;
constexpr unsigned ID_BOOKMARK_SEEK = 32056;
constexpr unsigned ID_BREAKPOINT_SEEK = 32057;
constexpr unsigned ID_FUNLIST_SEEK = 32058;
constexpr unsigned ID_MESSAGE_CLEAR = 32060;
constexpr unsigned ID_MESSAGE_COPY = 32061;
constexpr unsigned ID_MESSAGE_SEEK = 32062;
constexpr unsigned ID_MESSAGE_STOP = 32063;

// Commands of the watch menu.
constexpr unsigned ID_WATCH_DELETE = 32982;
constexpr unsigned ID_WATCH_CLEAR = 32983;
constexpr unsigned ID_WATCH_FORMAT_BIN = 32990;
constexpr unsigned ID_WATCH_FORMAT_DEC = 32991;
constexpr unsigned ID_WATCH_FORMAT_HEX = 32992;
constexpr unsigned ID_WATCH_EDIT = 32993;
constexpr unsigned ID_WATCH_SHOW_IN_MEMORY = 32994;
constexpr unsigned ID_WATCH_MOVE_DOWN = 32995;
constexpr unsigned ID_WATCH_MOVE_UP = 32996;

// Strings.
constexpr unsigned IDS_INPUT_ROW = 32062;
