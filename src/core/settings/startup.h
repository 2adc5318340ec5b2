#pragma once

#include "core/files/file_io.h"
#include "core/settings/app_state.h"
#include "core/store/catalogue_cache.h"

#include <vector>

namespace paneda {

// A text for the user that says why the program cannot work in its folder; empty if it can. A folder with a
// backslash in its path has no stored form, so no button in it could be started. state.AppPath and AppFolder
// have to be set.
QString FolderProblem(const AppState& state);

// What LoadPanelState returns besides the state that it fills.
struct PanelLoad {
    // The catalogue comes from the cache; the folders of the store were not read.
    bool CacheValid = false;
    // The valid cache without its catalogue. Its pictures may show another skin than the one to be shown.
    CacheRecord Cache;
    // What could not be read or written. The load goes on after each; the user sees all of them in one
    // notice.
    std::vector<FileError> Failures;
};

// Reads everything that the panel is made from into the state. Makes a missing store, reads `config` and adds
// its missing records, reads setting.ini, and takes the catalogue from the cache or scans the store.
// state.AppPath, AppFolder, Drives and ProductVersion have to be set.
PanelLoad LoadPanelState(AppState& state);

// Removes the cache file and writes a new one with the state's catalogue. If it cannot be written, the next
// start scans the store; no error is shown.
void WriteCache(const AppState& state, const PictureRecord& pictures);

// Writes what is kept at exit: the panel's place, and what SaveSettingsAtExit writes. Returns the error if
// the panel's place cannot be written; other errors are ignored.
FileResult SaveAtExit(const AppState& state);

} // namespace paneda
