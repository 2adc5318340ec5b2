#include "ui/organiser/frmButton.h"

#include "organiser/file_kinds.h"

namespace paneda {

void frmButton::cmdButtonAdd_Click() {
    AddSources(source_->Selection());
}

void frmButton::AddSources(AddRequest request) {
    // A drop of another program comes through while the disk is busy.
    if (isBusy_)
        return;
    const int button = organiser_->Selected(StoreLevel::Buttons);
    request.HasGroup = organiser_->Selected(StoreLevel::Groups) >= 0;
    request.ButtonNames = NamesFor(StoreLevel::Buttons);
    if (button >= 0)
        request.SelectedButton = organiser_->Titles(StoreLevel::Buttons)[button];
    request.UserName = state_.UserName;
    bool removes = false;
    for (const AddStep& step : DecideAdd(request, {state_.Drives, state_.AppPath}, services_.Prompts)) {
        // Those before it have been added behind the button that was asked about.
        if (step.What == AddStep::Kind::Picture)
            organiser_->Select(StoreLevel::Buttons, button);
        if (!Take(step))
            break;
        removes = removes || step.RemovesSource;
    }
    if (removes)
        source_->Refill();
}

// False when nothing more is to be added.
bool frmButton::Take(const AddStep& step) {
    const QString file = state_.Drives.ToHost(step.Source, state_.AppPath);
    switch (step.What) {
    case AddStep::Kind::AskLink:
        if (const auto link = services_.Dialogs.NewLink(step.Source, step.IsFolder))
            return AddButton({RecordName(link->Name), *link});
        return false;
    case AddStep::Kind::Record:
        return AddButton({step.TitleExt, step.Link});
    case AddStep::Kind::File:
        return AddButton({step.TitleExt, file, step.RemovesSource});
    case AddStep::Kind::Picture:
        return Run([&] { return organiser_->SetPicture(file, step.RemovesSource); });
    }
    return false;
}

bool frmButton::AddButton(NewButton button) {
    if (!Run([&] { return organiser_->AddButton(button); }))
        return false;
    const bool isCopy = std::holds_alternative<QString>(button.Source);
    if (isCopy && KindOfFile(button.TitleExt) == FileKind::WebShortcut && services_.Dialogs.FetchIcon) {
        services_.Dialogs.FetchIcon(organiser_->ButtonFile());
        preview_.start();
    }
    return true;
}

} // namespace paneda
