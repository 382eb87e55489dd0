#pragma once

// Makes every screen known to the main window's number table. Each folder registers its own.
void registerScreens();

void registerOrganisationScreens();
void registerSchoolScreens();
void registerContractScreens();
void registerStockScreens();
void registerSalesScreens();
