#include "organiser/renumbering.h"

#include "core/store/names.h"
#include "core/text/text_rules.h"

#include <QMultiHash>

#include <algorithm>
#include <optional>

namespace paneda {

namespace {

// Names as a file system sees them that ignores case.
QString Folded(const QString& name) {
    return name.toCaseFolded();
}

class NamesInFolder {
public:
    explicit NamesInFolder(const QStringList& names) {
        names_.reserve(names.size());
        for (const QString& name : names)
            Add(name);
    }

    // The entry that has this name, also in another case of letters; empty for none.
    QString Find(const QString& name) const {
        const auto spellings = names_.values(Folded(name));
        if (spellings.isEmpty() || spellings.contains(name))
            return spellings.isEmpty() ? QString() : name;
        return spellings.last();
    }
    void Add(const QString& name) { names_.insert(Folded(name), name); }
    void Change(const Rename& rename) {
        names_.remove(Folded(rename.From), rename.From);
        Add(rename.To);
    }

    // The first of head + number + tail that is free; numbers get zeros in front up to `digits`.
    QString FreeName(const QString& head, int number, int digits, const QString& tail) const {
        for (;; ++number) {
            QString name = head + QString::number(number).rightJustified(digits, u'0') + tail;
            if (Find(name).isEmpty())
                return name;
        }
    }

    // "<name> (2).png" for a picture in the way.
    QString PlaceAside(const QString& picture) const {
        return FreeName(WithoutExtension(picture) + QStringLiteral(" ("), 2, 1,
                        QStringLiteral(").") + ExtensionOf(picture));
    }

private:
    QMultiHash<QString, QString> names_;
};

QString PictureIn(const NamesInFolder& names, const QString& fileName) {
    for (const QStringView extension : kPictureExtensions) {
        const QString name = names.Find(WithoutExtension(fileName) + u'.' + extension);
        if (!name.isEmpty())
            return name;
    }
    return {};
}

void AppendButton(Renames& renames, const QString& fileName, const QString& newName,
                  const NamesInFolder& names) {
    if (newName == fileName)
        return;
    renames.push_back({fileName, newName});
    const QString picture = PictureIn(names, fileName);
    const QString wanted = WithoutExtension(newName) + u'.' + ExtensionOf(picture).toLower();
    // Two files of one title share a picture, which goes with the first.
    const bool isTaken = std::any_of(renames.begin(), renames.end(),
                                     [&picture](const Rename& rename) { return rename.From == picture; });
    if (!picture.isEmpty() && picture != wanted && !isTaken)
        renames.push_back({picture, wanted});
}

QString PrefixOf(const QString& name) {
    const qsizetype end = name.startsWith(u'[') ? name.indexOf(u']') : -1;
    return end < 0 ? QString() : name.first(end + 1) + u' ';
}

class SafeOrder {
public:
    SafeOrder(Renames wanted, const QStringList& names) : wanted_(std::move(wanted)), names_(names) {
        done_.resize(wanted_.size());
        for (std::size_t i = 0; i < wanted_.size(); ++i)
            waiting_.insert(wanted_[i].From, i);
    }

    Renames Plan() {
        for (std::size_t i = 0; i < wanted_.size(); ++i) {
            if (!done_[i])
                PlanWithThoseInTheWay(i);
        }
        return std::move(plan_);
    }

private:
    // The rename of the entry that has the name which this one wants.
    std::optional<std::size_t> InTheWay(std::size_t i) const {
        const QString holder = names_.Find(wanted_[i].To);
        const auto found = waiting_.find(holder);
        return found == waiting_.end() || *found == i || done_[*found] ? std::nullopt : std::optional(*found);
    }

    void PlanWithThoseInTheWay(std::size_t first) {
        std::vector<std::size_t> chain{first};
        while (const auto next = InTheWay(chain.back())) {
            if (std::find(chain.begin(), chain.end(), *next) != chain.end())
                TakeDetour(*next);
            else
                chain.push_back(*next);
        }
        for (; !chain.empty(); chain.pop_back())
            Finish(chain.back());
    }

    void Finish(std::size_t i) {
        const QString holder = names_.Find(wanted_[i].To);
        if (!holder.isEmpty() && holder != wanted_[i].From && IsImageExtension(ExtensionOf(holder)) &&
            !waiting_.contains(holder))
            Add({holder, names_.PlaceAside(holder)});
        Add(wanted_[i]);
        done_[i] = true;
    }

    void TakeDetour(std::size_t i) {
        QString& from = wanted_[i].From;
        const QString& to = wanted_[i].To;
        const QString detour =
            names_.FreeName(QStringLiteral("["), int(wanted_.size()) + 1, 3, to.sliced(to.indexOf(u']')));
        Add({from, detour});
        waiting_.remove(from);
        waiting_.insert(detour, i);
        from = detour;
    }

    void Add(const Rename& rename) {
        plan_.push_back(rename);
        names_.Change(rename);
    }

    Renames wanted_;
    NamesInFolder names_;
    QHash<QString, std::size_t> waiting_; // by the name that the entry has now
    std::vector<bool> done_;
    Renames plan_;
};

} // namespace

Renames InSafeOrder(Renames renames, const QStringList& names) {
    return SafeOrder(std::move(renames), names).Plan();
}

Renames RenumberFolders(const std::vector<StoreFolder>& folders, const QStringList& names) {
    Renames renames;
    for (std::size_t i = 0; i < folders.size(); ++i) {
        const QString wanted = NumberedName(int(i) + 1, folders[i].Title);
        if (wanted != folders[i].FolderName)
            renames.push_back({folders[i].FolderName, wanted});
    }
    return InSafeOrder(std::move(renames), names);
}

Renames RenumberButtons(const std::vector<StoreButton>& buttons, const QStringList& names) {
    const NamesInFolder inFolder(names);
    Renames renames;
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        const StoreButton& button = buttons[i];
        AppendButton(renames, button.FileName,
                     NumberedFileName(int(i) + 1, button.Title, TagOf(button.FileName), button.Extension),
                     inFolder);
    }
    return InSafeOrder(std::move(renames), names);
}

Renames RenameButtons(const Renames& buttons, const QStringList& names) {
    const NamesInFolder inFolder(names);
    Renames renames;
    for (const auto& [from, to] : buttons)
        AppendButton(renames, from, to, inFolder);
    return InSafeOrder(std::move(renames), names);
}

Renames RenameButton(const QString& fileName, const QString& newName, const QStringList& names) {
    return RenameButtons({{fileName, newName}}, names);
}

QString PictureOf(const QString& fileName, const QStringList& names) {
    return PictureIn(NamesInFolder(names), fileName);
}

QString PlaceAside(const QString& picture, const QStringList& names) {
    return NamesInFolder(names).PlaceAside(picture);
}

QString RetitledFolder(const QString& folderName, const QString& title) {
    return SafeFileName(PrefixOf(folderName) + title);
}

QString RetitledButton(const StoreButton& button, const QString& title) {
    return SafeFileName(PrefixOf(button.FileName) + title + QStringLiteral(" [") + TagOf(button.FileName) +
                        QStringLiteral("].") + button.Extension);
}

QString AddedButtonName(const std::vector<StoreButton>& buttons, const QString& titleExt) {
    const int position = int(buttons.size()) + 1;
    if (buttons.empty())
        return SafeFileName(OrderPrefix(position) + titleExt);
    return SafeFileName(NumberedFileName(position, WithoutExtension(titleExt), TagOf(buttons.back().FileName),
                                         ExtensionOf(titleExt)));
}

} // namespace paneda
