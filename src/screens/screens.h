#pragma once

// Makes every screen known to the main window's number table.
void registerScreens();
