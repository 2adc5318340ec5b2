#pragma once

#include "core/files/file_io.h"
#include "core/settings/app_state.h"
#include "core/store/catalogue_cache.h"

#include <vector>

namespace paneda {

// Why the program cannot work in its folder, for the user; empty when it can. state.AppPath and AppFolder
// have to be set. A folder with a backslash in its path has no stored form, so no button in it could be
// started.
QString FolderProblem(const AppState& state);

// What a load of the panel found, besides what it put into the state.
struct PanelLoad {
    // The catalogue comes from the cache, and no folder of the store was read.
    bool CacheValid = false;
    // The rest of a valid cache. Its pictures may be those of another skin than the one to be shown.
    CacheRecord Cache;
    // What could not be made or written. None of it ends the load; the user sees all of it in one notice.
    std::vector<FileError> Failures;
};

// Reads everything that the panel is made from into the state: makes a missing store, reads `config` and lets
// it grow, takes the catalogue from the cache or scans the store, reads setting.ini. state.AppPath,
// AppFolder, Drives and ProductVersion have to be set.
PanelLoad LoadPanelState(AppState& state);

// Removes the cache file and writes a new one, with the catalogue of the state. Where no cache can be written
// every start scans; no error is shown.
void WriteCache(const AppState& state, const PictureRecord& pictures);

// Saves what outlives the program: the panel's place, the selection, opacities and the like. Only the panel's
// place returns a failure.
FileResult SaveAtExit(const AppState& state);

} // namespace paneda
