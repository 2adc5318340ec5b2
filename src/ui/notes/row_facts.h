#pragma once

#include "core/settings/app_state.h"
#include "notes/tree_model.h"
#include "platform/file_icons.h"

#include <QHash>
#include <QImage>
#include <QObject>

#include <functional>
#include <vector>

namespace paneda {

// What the rows of a tree show that is not in their nodes: icons, and when they were changed. Read on another
// thread, for rows that are seen. A row whose facts have not come yet shows what it had, or nothing.
class RowFacts : public QObject {
    Q_OBJECT

public:
    struct Facts {
        QImage Icon;           // device pixels; null for the picture of its kind
        QString LastEdit = {}; // as the key holds it; empty where recent changes are not shown
    };

    RowFacts(const AppState& state, FileIcons& icons, const TreeModel& model)
        : state_(state), icons_(icons), model_(model) {}

    // Reads icons of 16 layout pixels for this ratio from now on, and forgets those of another.
    void SetRatio(double ratio);

    // The row is seen. Null when nothing is known about it; Changed is called when that has come.
    const Facts* Want(int row);

    // They are to be read again, but shown until then.
    void MarkOld(int row);
    void Drop(const std::vector<int>& rows);
    void Clear();

    // Facts that are kept; beyond kMostKept those are dropped that were not wanted last.
    int Kept() const { return int(facts_.size()); }
    static constexpr int kMostKept = 400;

    std::function<void(int row)> Changed;

private:
    struct Entry {
        Facts Known;
        QString Folder; // of the node that they belong to
        bool IsFresh = false;
        quint64 Asked = 0;  // number of the question whose answer counts; 0 for none
        quint64 Wanted = 0; // when, by a counter
    };
    struct Question {
        int Row = 0;
        quint64 Number = 0;
        QString Content; // host path, below which links are refused
        QString Folder;
    };
    struct Answer {
        Question Asked;
        QImage Icon;
        QString LastEdit;
    };
    static std::vector<Answer> Read(const std::vector<Question>& questions, int pixels, bool withTimes);

    void AskLater();
    void Ask();
    void Take(const std::vector<Answer>& answers, double ratio);
    QImage TargetIcon(const TreeNode& node) const;
    void Prune();

    const AppState& state_;
    FileIcons& icons_;
    const TreeModel& model_;
    double ratio_ = kLeastRatio;
    QHash<int, Entry> facts_;
    std::vector<int> waiting_;
    bool isAsking_ = false; // or will after this event
    quint64 clock_ = 0;
};

} // namespace paneda
