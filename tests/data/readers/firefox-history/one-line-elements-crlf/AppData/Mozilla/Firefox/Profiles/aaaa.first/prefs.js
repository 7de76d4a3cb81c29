user_pref("browser.startup.page", 1);
