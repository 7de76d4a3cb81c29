#pragma once

// Refresh by key for browsers that take no application command for it: "{F5}" into whatever
// window has the focus. Always true: the key string's status is not looked at.
bool KeyRefresh();
