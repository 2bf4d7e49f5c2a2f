#pragma once

// The sizes that several parts of the window share, in logical pixels: at a device pixel ratio of 1 and, for what holds
// text, with a system font of 13 pixels.
namespace corvale::Metrics {

inline constexpr int controlGap = 8;

inline constexpr int pillRadius = 4;
inline constexpr int checkBoxRadius = 4;
inline constexpr int controlRadius = 6;
inline constexpr int cardRadius = 8;
inline constexpr int chipRadius = 8;
inline constexpr int menuRadius = 8;
inline constexpr int panelRadius = 12;

inline constexpr int toolBarHeight = 44;
inline constexpr int cardHeight = 64;
inline constexpr int cardSideWidth = 76;
inline constexpr int cardSideWidthNarrow = 62;
inline constexpr int controlHeight = 28;
inline constexpr int buttonHeight = 32;  // in states and dialogs
inline constexpr int flatButton = 24;
inline constexpr int swapButton = 32;
inline constexpr int chipHeight = 32;
inline constexpr int noteHeight = 24;
inline constexpr int checkBox = 16;

inline constexpr int menuItemHeight = 27;
inline constexpr int menuSectionHeight = 23;
inline constexpr int menuSeparatorHeight = 11;
inline constexpr int menuPadding = 5;    // between the border and the items, the border included
inline constexpr int menuTextLeft = 30;  // from the edge of an item; the check mark stands before it
inline constexpr int menuCheckLeft = 9;
inline constexpr int menuTextRight = 12;
inline constexpr int menuShortcutGap = 28;

inline constexpr int icon = 16;
inline constexpr int cardIcon = 20;
inline constexpr int chevron = 12;
inline constexpr int menuCheck = 15;

inline constexpr int gridHeader = 30;
inline constexpr int gridTitlesSideBySide = 24;  // the line of Before and After, then that of the columns
inline constexpr int gridHeaderSideBySide = 28;
inline constexpr int gridRow = 28;
inline constexpr int gridGutter = 52;    // of row numbers, one a side
inline constexpr int gridStatusGap = 7;  // between its symbol and its word
inline constexpr int gridCellPadding = 11;
inline constexpr int gridCellPaddingLeftSideBySide = 5;
inline constexpr int gridCellPaddingRightSideBySide = 3;
inline constexpr int gridHalfGap = 12;
inline constexpr int pillHeight = 23;
inline constexpr int pillInsetY = 2;
inline constexpr int changeDot = 6;  // after the header of a column with changes
inline constexpr int edgeTabWidth = 14;
inline constexpr int edgeTabHeight = 21;
inline constexpr int outOfView = 44;  // a changed cell that shows less of itself gets an edge tab
inline constexpr int pinnedShadow = 3;

inline constexpr int detailsWidth = 264;
inline constexpr int detailsWidthMin = 220;
inline constexpr int detailsWidthMax = 480;
inline constexpr int overviewWidth = 16;
inline constexpr int helpSidebar = 228;
inline constexpr int duplicateList = 420;
inline constexpr int progressPanel = 340;
inline constexpr int progressBar = 6;
inline constexpr int busyBarWidth = 140;
inline constexpr int busyBarHeight = 4;
inline constexpr int searchWidth = 220;

inline constexpr int focusRing = 2;
inline constexpr int focusRingGap = 1;  // between the control and its ring
inline constexpr int selectedRowBar = 3;

// From these window widths down, labels and then texts of buttons give way.
inline constexpr int withoutLabels = 1180;
inline constexpr int withoutTexts = 1000;
inline constexpr int windowMinWidth = 760;
inline constexpr int windowMinHeight = 480;

}  // namespace corvale::Metrics
