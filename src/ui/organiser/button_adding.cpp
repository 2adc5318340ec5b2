#include "ui/organiser/frmButton.h"

#include "organiser/file_kinds.h"

#include <QScopeGuard>

#include <algorithm>

namespace paneda {

namespace {

// Where new buttons and pictures are to go.
struct AddPlace {
    QString Group; // host path
    int Button = -1;
    std::optional<QString> ButtonTitle; // as its list shows it
};

// A failure reads the lists again, and what is there then may not be what the user was asked about.
FileResult Return(const AddPlace& place, const AddStep& step, const QString& file, Organiser& organiser) {
    if (organiser.Selected(StoreLevel::Groups) < 0 || organiser.GroupFolder().Text() != place.Group)
        return Failure(file, QStringLiteral("The group is no longer there."));
    if (step.What != AddStep::Kind::Picture)
        return {};
    // Those before it have been added behind the button.
    organiser.Select(StoreLevel::Buttons, place.Button);
    const QStringList titles = organiser.Titles(StoreLevel::Buttons);
    return titles.value(place.Button) == place.ButtonTitle
               ? FileResult()
               : Failure(file, QStringLiteral("The button is no longer there."));
}

} // namespace

void frmButton::cmdButtonAdd_Click() {
    AddSources(source_->Selection());
}

void frmButton::AddDropped(const QStringList& hostPaths) {
    // A drop of another program comes through while the disk is busy.
    if (!isBusy_)
        AddSources(source_->Dropped(hostPaths, work_));
}

void frmButton::AddSources(AddRequest request) {
    isBusy_ = true;
    const auto end = qScopeGuard([this] {
        isBusy_ = false;
        preview_.start();
    });
    AddPlace place;
    place.Button = organiser_->Selected(StoreLevel::Buttons);
    request.HasGroup = organiser_->Selected(StoreLevel::Groups) >= 0;
    request.ButtonNames = NamesFor(StoreLevel::Buttons);
    if (place.Button >= 0)
        request.SelectedButton = organiser_->Titles(StoreLevel::Buttons)[place.Button];
    request.UserName = state_.UserName;
    place.ButtonTitle = request.SelectedButton;
    if (request.HasGroup)
        place.Group = organiser_->GroupFolder().Text();
    const std::vector<AddStep> steps = DecideAdd(request, {state_.Drives, state_.AppPath}, services_.Prompts);
    QStringList failures;
    for (const AddStep& step : steps) {
        const QString file = state_.Drives.ToHost(step.Source, state_.AppPath);
        FileResult taken = Return(place, step, file, *organiser_);
        if (taken)
            taken = Take(step, file);
        if (!taken)
            failures.append(taken.error().Text());
    }
    if (std::any_of(steps.begin(), steps.end(), [](const AddStep& step) { return step.RemovesSource; }))
        source_->Refill();
    if (!failures.isEmpty())
        services_.Prompts.Notice(steps.size() == 1 ? failures.first()
                                                   : FailedText(failures, int(steps.size())));
}

FileResult frmButton::Take(const AddStep& step, const QString& file) {
    FileResult taken;
    switch (step.What) {
    case AddStep::Kind::AskLink:
        if (const auto link = services_.Dialogs.NewLink(step.Source, step.IsFolder))
            taken = AddButton({RecordName(link->Name), *link});
        break;
    case AddStep::Kind::Record:
        taken = AddButton({step.TitleExt, step.Link});
        break;
    case AddStep::Kind::File:
        taken = AddButton({step.TitleExt, file, step.RemovesSource});
        break;
    case AddStep::Kind::Picture:
        taken = organiser_->SetPicture(file, step.RemovesSource);
        break;
    }
    ShowLists();
    return taken;
}

FileResult frmButton::AddButton(const NewButton& button) {
    const FileResult added = organiser_->AddButton(button);
    const bool isCopy = std::holds_alternative<QString>(button.Source);
    if (added && isCopy && KindOfFile(button.TitleExt) == FileKind::WebShortcut &&
        services_.Dialogs.FetchIcon)
        services_.Dialogs.FetchIcon(organiser_->ButtonFile());
    return added;
}

} // namespace paneda
