#include "notes/tree_manager.h"

#include "core/files/ini_file.h"
#include "core/settings/app_state.h"
#include "core/store/names.h"
#include "core/store/store_layout.h"
#include "core/text/text_rules.h"
#include "notes/node_properties.h"

#include <QFileInfo>

#include <algorithm>
#include <tuple>

namespace paneda {

namespace {

constexpr QStringView kForbiddenInFolder = u"\\/:*?\"<>|";
// A file system takes 255, and the file's name has an end.
constexpr qsizetype kMaxTreeNameBytes = 200;

QString HexText(QRgb colour) {
    return QString::number(colour & 0xFFFFFFU, 16).rightJustified(6, u'0').toUpper();
}

// A file manager gives a path that is copied from it with quotes.
QString PathAsKept(const QString& typed) {
    const QString path = typed.trimmed();
    const bool quoted = path.size() > 1 && path.startsWith(u'"') && path.endsWith(u'"');
    return quoted ? path.sliced(1, path.size() - 2).trimmed() : path;
}

IniResult SetForm(IniText& text, const TreeForm& form) {
    const auto set = [&text](QStringView section, QStringView key, const QString& value) {
        return text.SetValue(section, key, value);
    };
    if (const IniResult path = set(node_key::kProperties, u"Path", PathAsKept(form.Path)); !path)
        return path;
    // Six characters are never too long.
    std::ignore = set(u"Note", u"Background Color", HexText(form.NoteBackColor));
    std::ignore = set(u"Note", u"Title Color", HexText(form.NoteTitleColor));
    std::ignore = set(u"Note", u"Title 2 Color", HexText(form.NoteTitle2Color));
    return {};
}

// The empty text when the file has the name already.
QString RenameTreeFile(const QString& appFolder, const QString& oldName, const QString& name) {
    const DiskPath from = TreeIniFile(appFolder, oldName);
    const DiskPath to = from.Parent() / (name + QStringLiteral(".ini"));
    if (from.Text() == to.Text())
        return {};
    const EntryResult renamed = RenameEntry(from, to);
    return renamed ? QString() : renamed.error().Error.Text();
}

bool ComesBackFromFile(const QString& name) {
    IniText scratch;
    return scratch.SetValue(node_key::kProperties, u"Category", name) &&
           scratch.Value(node_key::kProperties, u"Category") == name;
}

} // namespace

TreePlace TreePlace::Of(const AppState& state) {
    return {state.AppFolder, state.AppPath, state.Drives};
}

QString UsualTreePath(const QString& name) {
    QString folder = name.trimmed();
    for (QChar& c : folder) {
        if (kForbiddenInFolder.contains(c))
            c = u'-';
    }
    return QStringLiteral("Data\\") + folder;
}

TreeSettings ResolveTreePath(const QString& path, const TreePlace& place) {
    TreeSettings settings;
    settings.Path = PathAsKept(path);
    ResolveContentFolder(settings, place.AppPath, place.Drives);
    return settings;
}

QString TreeNameProblem(const QString& name, const QStringList& trees, const QString& oldName) {
    if (name.trimmed().isEmpty())
        return QStringLiteral("Please Input Tree Name");
    if (!oldName.isEmpty() && name == oldName)
        return {};
    const qsizetype own = oldName.isEmpty() ? -1 : trees.indexOf(oldName);
    if (const QString problem = NameProblem(name.trimmed(), trees, own < 0 ? kNoException : int(own));
        !problem.isEmpty())
        return problem;
    // A settings file of such a name would not be found, or not on every system, or not in the category.
    const QString trimmed = name.trimmed();
    if (trimmed.startsWith(u'.') || SafeFileName(trimmed) != trimmed || !ComesBackFromFile(trimmed) ||
        trimmed.toUtf8().size() > kMaxTreeNameBytes)
        return QStringLiteral("A tree cannot be called '%1', since its file cannot have this name. "
                              "Please choose another name.")
            .arg(trimmed.left(40));
    return {};
}

TreeForm ReadTreeForm(const TreePlace& place, const QString& tree) {
    const IniText text = ReadIniFile(TreeIniFile(place.AppFolder, tree));
    const auto colour = [&text](QStringView key) { return ReadHexColour(text.Value(u"Note", key)); };
    return {tree,
            text.Value(node_key::kProperties, u"Path"),
            false,
            colour(u"Background Color"),
            colour(u"Title Color"),
            colour(u"Title 2 Color")};
}

QString SaveTree(const TreePlace& place, const TreeForm& form, const QString& oldName) {
    const QString name = form.Name == oldName ? oldName : form.Name.trimmed();
    if (const QString problem = TreeNameProblem(name, ListTrees(place.AppFolder), oldName);
        !problem.isEmpty())
        return problem;
    if (PathAsKept(form.Path).isEmpty())
        return QStringLiteral("Path is Empty!");
    const QString content = ResolveTreePath(form.Path, place).ContentFolder;
    if (form.CreatesFolder && !content.isEmpty()) {
        // The question that follows finds out that it is missing.
        if (const FileResult made = MakeFolderPath(content); !made && !QFileInfo(content).isDir())
            return QStringLiteral("Path Not Found!\n\n") + made.error().Text();
    }
    if (content.isEmpty() || !QFileInfo(content).isDir())
        return QStringLiteral("Path Not Found!");
    IniText scratch;
    if (const IniResult set = SetForm(scratch, form); !set)
        return set.error();
    if (const FileResult made = MakeFolder(FindEntry(place.AppFolder, QStringLiteral("Setting2"))); !made)
        return made.error().Text();
    // Under its old name first: when that fails, nothing has another name.
    const DiskPath file = TreeIniFile(place.AppFolder, oldName.isEmpty() ? name : oldName);
    auto text = LoadIniFile(file);
    if (!text)
        return text.error().Text();
    std::ignore = SetForm(*text, form); // not too long, as above
    if (const FileResult written = ReplaceFile(file, text->Bytes()); !written)
        return written.error().Text();
    return oldName.isEmpty() ? QString() : RenameTreeFile(place.AppFolder, oldName, name);
}

FileResult RemoveTreeFile(const TreePlace& place, const QString& tree) {
    const DiskPath file = TreeIniFile(place.AppFolder, tree);
    return EntryExists(file) ? WithoutProblem(RemoveFile(file)) : FileResult();
}

CatalogueList BindTree(CatalogueList catalogue, const TreeBinding& binding) {
    for (std::size_t i = 0; i < catalogue.size(); ++i) {
        CategoryEntry& category = catalogue[i];
        if (!category.IsTree())
            continue;
        if (int(i) == binding.Category)
            category.TreeName = binding.Tree;
        else if (!binding.From.isEmpty() && category.TreeName == binding.From)
            category.TreeName = binding.To;
    }
    return catalogue;
}

std::vector<FileError> WriteBoundTrees(const TreePlace& place, const CatalogueList& before,
                                       const CatalogueList& after) {
    std::vector<FileError> failures;
    for (std::size_t i = 0; i < std::min(before.size(), after.size()); ++i) {
        if (before[i].TreeName == after[i].TreeName)
            continue;
        const FileResult written =
            WriteIni(QStringLiteral("Properties"), QStringLiteral("Category"), after[i].TreeName,
                     CategoryIniFile(place.AppFolder, after[i].FolderName));
        if (!written)
            failures.push_back(written.error());
    }
    return failures;
}

} // namespace paneda
