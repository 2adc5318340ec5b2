#include "core/settings/startup.h"

#include "core/files/ini_file.h"
#include "core/settings/config_settings.h"
#include "core/settings/settings.h"
#include "core/store/catalogue_loader.h"
#include "core/store/store_layout.h"

#include <QFile>

#include <iterator>
#include <utility>

namespace paneda {

namespace {

void TakeCache(AppState& state, PanelLoad& load) {
    if (state.IgnoreCache)
        return;
    auto cache = LoadCache(CacheFilePath(state.AppFolder), state.ProductVersion, state.AppPath);
    load.CacheValid = cache.has_value();
    if (cache)
        load.Cache = std::move(*cache);
}

} // namespace

QString FolderProblem(const AppState& state) {
    // A path that begins with a slash here could not be turned into the stored form.
    if (!state.AppPath.startsWith(u'/'))
        return {};
    return state.ProductName + QStringLiteral(" cannot work in the folder\n\n") + state.AppFolder +
           QStringLiteral(
               "\n\nsince the path of this folder has a backslash (\\) in it. Rename the folder, or "
               "move the program to another one.");
}

PanelLoad LoadPanelState(AppState& state) {
    PanelLoad load;
    load.Failures = CreateMissingStore(state.AppFolder);
    std::vector<FileError> configFailures = LoadConfig(state);
    std::move(configFailures.begin(), configFailures.end(), std::back_inserter(load.Failures));
    TakeCache(state, load);
    auto settings = LoadIniFile(SettingIniFile(state.AppFolder));
    if (!settings)
        load.Failures.push_back(settings.error());
    ReadSettings(settings.value_or(IniText()), state);
    state.Catalogue =
        load.CacheValid ? std::exchange(load.Cache.Catalogue, {}) : LoadCatalogue(ScanOptionsOf(state));
    return load;
}

void WriteCache(const AppState& state, const PictureRecord& pictures) {
    const QString path = CacheFilePath(state.AppFolder);
    // Ignored: the write below replaces a file that could not be removed.
    QFile::remove(path);
    // Ignored, as the header says.
    (void)SaveCache(path,
                    {state.ProductVersion, state.Catalogue, pictures, HasDriveButtons(state.Catalogue)});
}

FileResult SaveAtExit(const AppState& state) {
    FileResult place = SavePanelPlace(state);
    SaveSettingsAtExit(state);
    return place;
}

} // namespace paneda
