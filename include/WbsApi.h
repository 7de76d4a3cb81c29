#pragma once
// Export decoration of the public API. The library's own objects export; the static library's
// users (tests, tools) declare plainly; everyone else imports from WebBrowserSupport.dll.
#if defined(WBS_BUILDING_DLL)
#define WBS_API __declspec(dllexport)
#elif defined(WBS_STATIC)
#define WBS_API
#else
#define WBS_API __declspec(dllimport)
#endif
