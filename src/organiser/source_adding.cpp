#include "organiser/source_adding.h"

#include "core/prompts.h"
#include "core/store/names.h"
#include "organiser/file_kinds.h"
#include "organiser/store_lists.h"

#include <algorithm>

namespace paneda {

namespace {

// More of them would not fit on a screen.
QString FirstLines(const QStringList& lines) {
    constexpr qsizetype kMost = 12;
    const QString text = lines.first(std::min(lines.size(), kMost)).join(u'\r');
    return lines.size() <= kMost ? text : text + QStringLiteral("\rand %1 more").arg(lines.size() - kMost);
}

// What the user reads before anything is done; empty if there is nothing against it.
QString Refusal(const AddRequest& request) {
    if (!request.HasGroup)
        return QStringLiteral("Hi %1, no group found associated with this button, please add a group first")
            .arg(request.UserName);
    const bool needsFile =
        request.Option != SourceOption::LinkFolder && request.Option != SourceOption::LinkUrl;
    if (needsFile && request.Entries.empty())
        return QStringLiteral("Hi %1, please select a file for the new button").arg(request.UserName);
    if (request.Option == SourceOption::LinkFolder && request.OpenFolder.isEmpty())
        return QStringLiteral("Invalide Folder");
    return {};
}

AddStep LinkStep(const QString& source, bool isFolder) {
    AddStep step;
    step.What = AddStep::Kind::AskLink;
    step.Source = source;
    step.IsFolder = isFolder;
    return step;
}

AddStep RecordStep(const BrowserEntry& entry, const LinkPlace& place) {
    AddStep step;
    step.What = AddStep::Kind::Record;
    step.Source = entry.IsFolder() ? FolderPath(entry) : entry.FullPath;
    step.Link = NewLink(step.Source, entry.IsFolder(), place);
    step.TitleExt = RecordName(step.Link.Name);
    return step;
}

AddStep FileStep(const BrowserEntry& entry, bool removesSource) {
    AddStep step;
    const bool isPicture = KindOfFile(entry.Name) == FileKind::Picture;
    step.What = isPicture ? AddStep::Kind::Picture : AddStep::Kind::File;
    step.Source = entry.FullPath;
    step.TitleExt = StripOrderPrefix(entry.Name);
    step.RemovesSource = removesSource;
    return step;
}

bool MayTakePicture(const AddRequest& request, Prompts& prompts) {
    if (!request.SelectedButton) {
        prompts.Notice(QStringLiteral("You must select a button for this picture"));
        return false;
    }
    return prompts.ConfirmUsual(
        QStringLiteral("Use this picture for the button '%1' ?").arg(*request.SelectedButton), {});
}

std::vector<AddStep> OneStep(const AddRequest& request, Prompts& prompts) {
    if (request.Option == SourceOption::LinkFolder)
        return {LinkStep(request.OpenFolder, true)};
    if (request.Entries.empty())
        return {};
    const BrowserEntry& entry = request.Entries.front();
    if (request.Option == SourceOption::LinkFile)
        return {LinkStep(entry.FullPath, false)};
    const AddStep step = FileStep(entry, request.Option == SourceOption::Move);
    const bool goes = step.What == AddStep::Kind::Picture
                          ? MayTakePicture(request, prompts)
                          : !ValidateName(step.TitleExt, request.ButtonNames, kNoException, prompts);
    return goes ? std::vector{step} : std::vector<AddStep>();
}

std::vector<AddStep> ManySteps(const AddRequest& request, const LinkPlace& place, Prompts& prompts) {
    std::vector<AddStep> steps;
    QStringList names = request.ButtonNames;
    QStringList refused;
    const bool moves = request.Option == SourceOption::Move;
    for (const BrowserEntry& entry : request.Entries) {
        const bool links = entry.IsFolder() || (!moves && UsualOption(entry.Name) == SourceOption::LinkFile);
        const AddStep step = links ? RecordStep(entry, place) : FileStep(entry, moves);
        // A folder that exists in its source alone cannot be opened.
        if (step.Source.isEmpty())
            continue;
        if (step.What == AddStep::Kind::Picture) {
            if (MayTakePicture(request, prompts))
                steps.push_back(step);
            continue;
        }
        const QString problem = NameProblem(step.TitleExt, names, kNoException);
        if (problem.isEmpty()) {
            names.append(step.TitleExt);
            steps.push_back(step);
        } else {
            refused.append(ListTitle(step.TitleExt) + QStringLiteral(": ") + problem);
        }
    }
    if (!refused.isEmpty())
        prompts.Notice(QStringLiteral("These were not added:\r\r") + FirstLines(refused));
    return steps;
}

} // namespace

std::vector<AddStep> DecideAdd(const AddRequest& request, const LinkPlace& place, Prompts& prompts) {
    const QString refusal = Refusal(request);
    if (!refusal.isEmpty()) {
        prompts.Notice(refusal);
        return {};
    }
    if (request.Option == SourceOption::Move &&
        !prompts.Confirm(QStringLiteral("You choose to move the file, are you sure ?"),
                         QStringLiteral("Your file will be moved")))
        return {};
    const bool dropsFolder = request.Entries.size() == 1 && request.Entries.front().IsFolder() &&
                             request.Option != SourceOption::LinkFolder;
    return request.Entries.size() > 1 || dropsFolder ? ManySteps(request, place, prompts)
                                                     : OneStep(request, prompts);
}

QString FailedText(const QStringList& failures, int all) {
    return QStringLiteral("%1 of %2 failed:\r\r").arg(failures.size()).arg(all) + FirstLines(failures);
}

QString RecordName(const QString& typed) {
    return StripOrderPrefix(typed + QStringLiteral(".pnd"));
}

} // namespace paneda
