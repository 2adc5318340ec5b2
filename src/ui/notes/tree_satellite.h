#pragma once

#include "ui/notes/frmTree.h"
#include "ui/panel/satellites.h"

#include <QObject>
#include <QPointer>

#include <optional>

namespace paneda {

// The tree window of the panel. It is made when a tree is first shown, and goes with the panel that it
// was made for.
class TreeSatellite : public QObject, public Satellites {
    Q_OBJECT

public:
    TreeSatellite(AppState& state, const TreeServices& services) : state_(state), services_(services) {}

    ~TreeSatellite() override;

    bool Owns(WId window) const override;
    NoteWindowState Note() const override { return {}; }
    void OpenTree(const std::optional<TreeOnPanel>& tree) override;
    void Show(bool treeIsOpened) override;
    void Hide() override;
    void Unload() override;
    void Follow(const TwipsRect& panel, const WindowPlace* note) override;

    // The opacity in the settings has changed.
    void OpacityChanged();

    // Null until it is wanted, and after the panel has gone.
    frmTree* Window() const { return window_; }

protected:
    // Keys that the panel gets belong to the tree that stands in it.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Place(WindowPlace panel);

    AppState& state_;
    TreeServices services_;
    std::optional<TreeOnPanel> wanted_;
    QPointer<frmTree> window_;
    QString skinPath_; // of the window
};

} // namespace paneda
