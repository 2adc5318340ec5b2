#include "skin/option_plan.h"

#include "core/files/ini_file.h"
#include "core/store/names.h"
#include "core/text/text_rules.h"
#include "core/text/windows_1252.h"

#include <QMap>
#include <QSet>
#include <QStringDecoder>

#include <algorithm>

namespace paneda {

namespace {

constexpr QStringView kDelete = u"DELETE ";
constexpr QStringView kText = u".TXT";
constexpr QStringView kChangeIni = u"CHANGE SKIN.INI";
constexpr QStringView kSkinIni = u"skin.ini";

// The names of an option come from a stranger; what a skin's folder cannot hold on every system is no name.
bool IsPlainFileName(const QString& name) {
    static const QString kForbidden = QStringLiteral("/\\:");
    return !TrimBlanks(name).isEmpty() && name != u"." && name != u".." &&
           std::none_of(name.begin(), name.end(), [](QChar c) { return c < u' ' || kForbidden.contains(c); });
}

// "top" of "top.png"; empty for what is no picture.
QString PictureName(const QString& fileName) {
    return IsImageExtension(ExtensionOf(fileName)) ? WithoutExtension(fileName) : QString();
}

class Plan {
public:
    Plan(const QStringList& skinFiles, const QByteArray& skinIni) : skinIni_(skinIni) {
        for (const QString& name : skinFiles) {
            exact_.insert(name);
            if (!onDisk_.contains(name.toCaseFolded()))
                onDisk_.insert(name.toCaseFolded(), name);
        }
    }

    tl::expected<void, QString> Add(const OptionFile& file) {
        const auto deleted = DeletedName(file.Name);
        if (deleted && !IsPlainFileName(*deleted))
            return tl::make_unexpected(
                QStringLiteral("%1: this does not name a file of the skin.").arg(file.Name));
        // Kept as an original, it would be taken for an instruction.
        if (deleted && IsInstruction(*deleted))
            return tl::make_unexpected(
                QStringLiteral("%1: a file of this name cannot be removed.").arg(file.Name));
        if (deleted)
            Remove(*deleted);
        else if (SameName(file.Name, kChangeIni))
            return ChangeIni(file);
        else
            Set(file.Name, file.Bytes);
        return {};
    }

    // `top@2x.png` and the like of each picture that is replaced or removed.
    void TakeDenserAlong() {
        const QStringList touched = changes_.keys();
        for (const QString& key : touched) {
            const QString stem = PictureName(changes_[key].Name);
            if (stem.isEmpty())
                continue;
            for (const QStringView density : {u"@2x", u"@3x"}) {
                for (const QStringView extension : {u".png", u".jpg"}) {
                    const QString denser = stem + density + extension;
                    if (!changes_.contains(denser.toCaseFolded()))
                        Remove(denser);
                }
            }
        }
    }

    std::vector<SkinChange> Changes() const {
        std::vector<SkinChange> changes;
        for (const SkinChange& change : changes_) {
            if (change.Bytes || onDisk_.contains(change.Name.toCaseFolded()))
                changes.push_back(change);
        }
        return changes;
    }

private:
    void Set(const QString& name, const std::optional<QByteArray>& bytes) {
        const QString key = name.toCaseFolded();
        changes_.insert(key, {exact_.contains(name) ? name : onDisk_.value(key, name), bytes});
    }
    void Remove(const QString& name) { Set(name, std::nullopt); }

    tl::expected<void, QString> ChangeIni(const OptionFile& file) {
        const QString key = kSkinIni.toString().toCaseFolded();
        const auto changed = changes_.constFind(key);
        IniText ini(changed == changes_.constEnd() ? skinIni_ : changed->Bytes.value_or(QByteArray()));
        const std::vector<IniChange> lines = ReadIniChanges(file.Bytes);
        if (lines.size() > kMostIniChanges)
            return tl::make_unexpected(
                QStringLiteral("%1 has more than %2 lines.").arg(file.Name).arg(kMostIniChanges));
        for (const IniChange& line : lines) {
            if (const IniResult set = ini.SetValue(line.Section, line.Key, line.Value); !set)
                return tl::make_unexpected(file.Name + QStringLiteral(": ") + set.error());
        }
        if (ini.Bytes().size() > kMaxIniFile)
            return tl::make_unexpected(QStringLiteral("%1: skin.ini would become larger than %2 bytes.")
                                           .arg(file.Name)
                                           .arg(kMaxIniFile));
        if (!lines.empty())
            Set(kSkinIni.toString(), ini.Bytes());
        return {};
    }

    // Of several names that differ in case alone the one that is spelled the same is found, then the first.
    QSet<QString> exact_;
    QMap<QString, QString> onDisk_;     // names by their folded form
    QMap<QString, SkinChange> changes_; // by the folded name
    const QByteArray& skinIni_;
};

// Some editors write a mark and UTF-16.
QString DecodeText(const QByteArray& text) {
    if (text.isValidUtf8())
        return QString::fromUtf8(text);
    if (const auto marked = QStringConverter::encodingForData(text))
        return QStringDecoder(*marked)(text);
    return DecodeWindows1252(text);
}

} // namespace

std::vector<IniChange> ReadIniChanges(const QByteArray& text) {
    const QString decoded = DecodeText(text);
    std::vector<IniChange> changes;
    QString section;
    for (const QString& each : QString(decoded).replace(u'\r', u'\n').split(u'\n')) {
        const QString line = each.trimmed();
        if (line.startsWith(u'[')) {
            section = line.mid(1).chopped(line.size() > 1 ? 1 : 0);
            continue;
        }
        const qsizetype equals = line.indexOf(u'=');
        const QString key = equals < 0 ? QString() : line.left(equals).trimmed();
        if (!key.isEmpty() && !key.startsWith(u';') && !TrimBlanks(section).isEmpty())
            changes.push_back({section, key, line.mid(equals + 1).trimmed()});
    }
    return changes;
}

std::optional<QString> DeletedName(const QString& fileName) {
    if (fileName.size() < kDelete.size() + kText.size() ||
        !fileName.startsWith(kDelete, Qt::CaseInsensitive) || !fileName.endsWith(kText, Qt::CaseInsensitive))
        return std::nullopt;
    return fileName.mid(kDelete.size()).chopped(kText.size());
}

QString DeletingFile(const QString& name) {
    return kDelete + name + kText;
}

bool IsInstruction(const QString& fileName) {
    return DeletedName(fileName) || SameName(fileName, kChangeIni);
}

tl::expected<std::vector<SkinChange>, QString> PlanOption(const std::vector<OptionFile>& files,
                                                          const QStringList& skinFiles,
                                                          const QByteArray& skinIni, DenserRule rule) {
    Plan plan(skinFiles, skinIni);
    for (const OptionFile& file : files) {
        if (const auto added = plan.Add(file); !added)
            return tl::make_unexpected(added.error());
    }
    if (rule == DenserRule::TakeAlong)
        plan.TakeDenserAlong();
    return plan.Changes();
}

} // namespace paneda
