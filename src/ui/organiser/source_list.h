#pragma once

#include "core/files/disk_work.h"
#include "core/settings/app_state.h"
#include "organiser/source_adding.h"
#include "organiser/source_browser.h"
#include "platform/file_icons.h"
#include "platform/opener.h"
#include "platform/source_places.h"
#include "platform/volumes.h"

#include <QTimer>
#include <QWidget>

#include <memory>
#include <vector>

class QRadioButton;

namespace Ui {
class SourceList;
} // namespace Ui

namespace paneda {

// The services that the source browser uses. A service has the name of its type.
struct SourceServices {
    std::shared_ptr<const paneda::SourcePlaces> SourcePlaces;
    paneda::FileIcons& FileIcons;
    paneda::Opener& Opener;
    paneda::Volumes& Volumes;
};

// The browser of files that can become buttons: a list of one folder of a source, what is shown of the
// selected file, and what is to be done with it. Folders are read on other threads. A single click enters a
// folder; with the Ctrl or Shift key it selects it like a file.
class SourceList : public QWidget {
    Q_OBJECT

public:
    SourceList(AppState& state, SourceServices services, QWidget* parent = nullptr);
    ~SourceList() override;

    // Begins with the desktop. Call it once, before the first show.
    void Form_Load();

    // What is selected: Option, Entries and OpenFolder are filled.
    AddRequest Selection() const;

    // The same for files and folders that were dropped (host paths), which `work` looks at.
    AddRequest Dropped(const QStringList& hostPaths, const DiskWork& work) const;

    // Reads the open folder again.
    void Refill();

    void cboFolderMode_Click();
    void lstWindows_Click();
    void lstWindows_DblClick();
    void cmdFolderUp_Click();
    void txtFolder_Click();

Q_SIGNALS:
    // The user wants to add what is selected.
    void AddWanted();
    // The list shows another folder, or the same one again.
    void Filled();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Reading {
        std::vector<BrowserEntry> Entries;
        QString Folder; // that may become a button, stored form with a backslash at its end; empty for none
        QString Problem;
    };
    static Reading ReadFolder(Source source, const QString& folder, const SourcePlaces& places,
                              const LaunchPaths& paths);

    void AddKeys();
    void OpenFolder(const QString& folder);
    void FillBrowser();
    void ShowReading(Reading reading);
    void ShowMessage(const QString& text);
    void ShowPreview();
    void ShowPicture(const QImage& picture);
    void OfferFolder(bool on);
    QRadioButton* OptionButton(SourceOption option) const;
    const BrowserEntry* EntryAt(int row) const;
    std::vector<const BrowserEntry*> Selected() const;
    LaunchPaths Paths() const { return {state_.Drives, state_.AppPath}; }

    AppState& state_;
    SourceServices services_;
    std::unique_ptr<Ui::SourceList> ui_;
    Source browserMode_ = Source::Desktop;
    QString browserFolder_; // with a backslash at its end; empty at the root
    QString cameFrom_;      // the folder that was left upwards
    std::vector<BrowserEntry> browserEntries_;
    QString linkFolder_; // that may become a button, stored form; empty for none
    int reading_ = 0;    // number of the last reading; older ones are dropped
    int preview_ = 0;    // likewise
    QTimer slow_;        // shows that a reading takes its time
    QTimer previewSoon_;
    qint64 enteredAt_ = 0; // milliseconds; when a click has entered a folder
};

} // namespace paneda
