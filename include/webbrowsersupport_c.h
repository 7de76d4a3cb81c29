/* WebBrowserSupport: the plain C interface.
 *
 * Beside the C++ exports, for callers that cannot use C++ types: C programs, .NET through
 * P/Invoke, Python through ctypes. Nothing of C++ crosses it and no exception leaves it.
 *
 * Conventions shared by every function:
 * - Calling convention: __stdcall (WBS_CALL), the Windows API's own; on x64 it is the one x64
 *   convention. P/Invoke: CallingConvention.StdCall (the default), ctypes: WinDLL.
 * - Strings are UTF-16 (wchar_t), terminated; CharSet.Unicode for P/Invoke, c_wchar_p for ctypes.
 * - Windows are passed as void* (an HWND; IntPtr for P/Invoke, c_void_p for ctypes). A null
 *   window means the window in front (the foreground window).
 * - Results are int: 1 when the command was delivered or the data was found, 0 otherwise.
 * - Strings handed out go into the caller's buffer of `capacity` characters (terminator
 *   included). As much as fits is copied and the buffer is always terminated when capacity is
 *   above 0. The full length (in characters, without the terminator) is reported, so a caller
 *   whose length came back at or above its capacity calls again with a buffer of length + 1.
 * - Lists (favorites, typed addresses) are handed out one entry at a time through the caller's
 *   callback while the call runs; the strings it receives belong to the library and are valid
 *   only during that callback. No memory is handed across for the caller to free.
 * - The host's event manager does not exist here: where a window does not answer the Windows
 *   application command, back and forward end there (still reported as delivered) instead of
 *   running the host's "AppOverrides" macro and pressing the arrow key.
 * - Calls are made on one thread at a time, as the C++ commands expect.
 */
#ifndef WEBBROWSERSUPPORT_C_H
#define WEBBROWSERSUPPORT_C_H

#include <stddef.h>

#if defined(WBS_BUILDING_DLL)
#define WBS_C_API __declspec(dllexport)
#elif defined(WBS_STATIC)
#define WBS_C_API
#else
#define WBS_C_API __declspec(dllimport)
#endif
#define WBS_CALL __stdcall

#ifdef __cplusplus
extern "C" {
#endif

/* The library's version: (major << 16) | (minor << 8) | patch, e.g. 0x010000 for 1.0.0. It is
 * the version the DLL's version resource carries. */
WBS_C_API unsigned int WBS_CALL wbs_version(void);

/* ---- Commands. Each returns 1 when the command was delivered, 0 when not. ---- */

/* Back / forward in the browser that owns window (null: the window in front). With a window and
 * no browser recognised, the window gets the Windows application command; with neither, the
 * mouse's first / second side button is clicked where the pointer is (and 1 is returned). */
WBS_C_API int WBS_CALL wbs_browser_back(void* window);
WBS_C_API int WBS_CALL wbs_browser_forward(void* window);
/* Reloads the page of the browser that owns window (null: in front); 0 when none is recognised. */
WBS_C_API int WBS_CALL wbs_browser_refresh(void* window);
/* The search page / the favorites of the browser in front, else of the default browser. */
WBS_C_API int WBS_CALL wbs_browser_search(void);
WBS_C_API int WBS_CALL wbs_browser_show_favorites(void);
/* The home page of the browser that owns window (null: in front); with none recognised there,
 * the default browser is opened on its own start page. */
WBS_C_API int WBS_CALL wbs_go_to_browser_home(void* window);
/* Opens url in the browser in front, else in the default browser; null is the empty address. */
WBS_C_API int WBS_CALL wbs_go_to_web_address(const wchar_t* url);
/* Opens url through the shell, else through the program registered for HTML files.
 * show_command is the ShowWindow code (SW_SHOWNORMAL is 1). 0 for a null url. */
WBS_C_API int WBS_CALL wbs_goto_url(const wchar_t* url, int show_command);

/* ---- Which driver serves. ---- */

/* The name of the driver (e.g. "cIEWebBrowser") that serves command for the browser owning
 * window (null: in front). command is one of "BACK", "FORWARD", "REFRESH", "HOME", "SEARCH",
 * "FAVORITES", "WEBADDRESS"; null or "" names the driver that serves the reads below (page,
 * favorites, history). Returns the name's length, 0 when no browser is recognised (name is then
 * the empty string). */
WBS_C_API int WBS_CALL wbs_foreground_driver(void* window, const wchar_t* command, wchar_t* name, int capacity);
/* The name of the driver for the user's default browser, as above; 0 when none is registered
 * or no driver claims it. */
WBS_C_API int WBS_CALL wbs_default_driver(wchar_t* name, int capacity);

/* ---- What the browser shows. ---- */

/* The page of the browser that owns window (null: in front): its URL and its title, each into
 * its own buffer. url_length and title_length (either may be null) receive the full lengths.
 * Returns 1 when the browser's driver reported the page, 0 when no browser is recognised or it
 * reports none (both buffers are then empty and both lengths 0). */
WBS_C_API int WBS_CALL wbs_current_page(void* window, wchar_t* url, int url_capacity, int* url_length,
                                        wchar_t* title, int title_capacity, int* title_length);

/* ---- Favorites and typed addresses. ---- */

/* The kind of one entry handed to a wbs_entry_callback. */
enum wbs_entry_kind {
    WBS_ENTRY = 0,        /* a favorite or a typed address: text and extra as below */
    WBS_FOLDER_START = 1, /* a favorites folder opens: text is its name, extra is "" */
    WBS_FOLDER_END = 2    /* the folder named by text closes; folders nest */
};

/* Receives one entry, in the browser's own order. A favorite's text is its name, "<", its URL and
 * ">", nothing escaped (so a name may itself hold "<"); its extra is "". A typed address comes
 * as the browser's reader stores it: Internet Explorer's as the registry value name in text and
 * the address in extra, the others as the address in text and "" in extra.
 * Return nonzero to go on, 0 to stop the listing. */
typedef int(WBS_CALL* wbs_entry_callback)(void* context, int kind, const wchar_t* text, const wchar_t* extra);

/* The favorites / typed addresses of a browser family, whether or not it runs or is installed.
 * family is one of "ie", "firefox", "netscape", "netscape8", "netscape7", "opera", "aol".
 * Returns 1 when the family's reader reported its store read (also when it was empty, and also
 * when the callback stopped the listing), 0 for an unknown family, a null callback or a reader
 * that failed (nothing is then handed out). Internet Explorer's
 * favorites need COM on the calling thread: it is set up for the call when the thread has none. */
WBS_C_API int WBS_CALL wbs_family_favorites(const wchar_t* family, wbs_entry_callback callback, void* context);
WBS_C_API int WBS_CALL wbs_family_history(const wchar_t* family, wbs_entry_callback callback, void* context);
/* As above, for the browser that owns window (null: in front); 0 when none is recognised. */
WBS_C_API int WBS_CALL wbs_foreground_favorites(void* window, wbs_entry_callback callback, void* context);
WBS_C_API int WBS_CALL wbs_foreground_history(void* window, wbs_entry_callback callback, void* context);
/* As above, for the user's default browser; 0 when none is registered or recognised. */
WBS_C_API int WBS_CALL wbs_default_favorites(wbs_entry_callback callback, void* context);
WBS_C_API int WBS_CALL wbs_default_history(wbs_entry_callback callback, void* context);

#ifdef __cplusplus
}
#endif

#endif /* WEBBROWSERSUPPORT_C_H */
