#pragma once
#include <windows.h>

// Performs AOL toolbar commands: finds the frame, its toolbars and address box, walks the inner
// toolbar's descendants to take the buttons by their position, and clicks them, posts commands
// to the frame or the toolbar, or types keys, as each command code needs.
class cAOLToolbarCommander {
public:
    explicit cAOLToolbarCommander(WNDENUMPROC callback = &cAOLToolbarCommander::TakeToolbarItem) noexcept;

    // Finds the windows: the frame and, each a direct child of the last, the two toolbars and the
    // address box, stopping at the first missing one and leaving the rest as they were; with all
    // four found, walks the inner toolbar's descendants afresh.
    void Locate();
    // Performs command code 1 to 15 and gives 1; 0 for any other code. A press that is not a
    // repeat locates the windows first, a repeat uses those of the last fresh press; a release
    // (pressed zero) only lets go of held keys and gives 0.
    int Execute(unsigned short code, int pressed, int repeated);
    // WM_COMMAND posted to the frame or to the inner toolbar, when that window exists.
    void PostToFrame(WPARAM wParam, LPARAM lParam) const;
    void PostToToolbar(WPARAM wParam, LPARAM lParam) const;

    // The walk's callback: counts the descendant and keeps it when its position is one of the
    // buttons'. lParam is the commander.
    static BOOL CALLBACK TakeToolbarItem(HWND window, LPARAM lParam);

private:
    static void Click(HWND window);
    static void ClickUp(HWND window);

    HWND frame;
    HWND toolbar;
    HWND innerToolbar;
    HWND combo;
    HWND item48;
    HWND item9;
    HWND item22;
    HWND item23;
    HWND item24;
    HWND item25;
    HWND item33;
    // Cleared by every walk and never filled: codes 2 and 10 act on them, so those two commands
    // reach no button.
    HWND itemSpareA;
    HWND itemSpareB;
    LONG count;
    WNDENUMPROC callback;
};
