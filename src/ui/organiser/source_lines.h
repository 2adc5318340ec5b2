#pragma once

#include <QElapsedTimer>
#include <QListWidget>

namespace paneda {

// The list of the source browser, whose lines can be dragged to where files are taken. A line's host path is
// its data of this role; one without cannot be dragged.
class SourceLines : public QListWidget {
    Q_OBJECT

public:
    static constexpr int kHostPath = Qt::UserRole;

    explicit SourceLines(QWidget* parent = nullptr);

    // Folders are found by their names, without the marker in front.
    void keyboardSearch(const QString& typed) override;

protected:
    void startDrag(Qt::DropActions actions) override;
    QMimeData* mimeData(const QList<QListWidgetItem*>& lines) const override;

private:
    QString search_; // letters that were typed one soon after the other
    QElapsedTimer searchedAt_;
};

} // namespace paneda
