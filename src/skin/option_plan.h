#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <tl/expected.hpp>

#include <optional>
#include <vector>

namespace paneda {

// What an option does to its skin. An option is a folder in the folder of a skin. Its files say what becomes
// of the skin's files when it is applied:
//   "DELETE <name>.TXT"   the file <name> is removed
//   "CHANGE SKIN.INI"     keys of skin.ini are written, see ReadIniChanges
//   any other name        the file is copied over the skin's file of that name
// All names are compared without regard to case.

// One file in the folder of an option.
struct OptionFile {
    QString Name;
    QByteArray Bytes;
};

// What becomes of one file of the skin.
struct SkinChange {
    QString Name; // as the skin's folder has it, or as the option has it if the folder does not
    std::optional<QByteArray> Bytes; // the new contents; nothing: the file is removed
};

// A line of "CHANGE SKIN.INI".
struct IniChange {
    QString Section;
    QString Key;
    QString Value;

    friend bool operator==(const IniChange&, const IniChange&) = default;
};

// At most so many changes of keys are accepted. A skin.ini has about 60 keys.
inline constexpr std::size_t kMostIniChanges = 500;

// The changes that a text tells, in UTF-8, UTF-16 with a mark, or else Windows-1252: a line "[section]", then
// a line "key=value" for each key. Blank lines and comments (";") are skipped, and so is what has no key or
// no section before it.
std::vector<IniChange> ReadIniChanges(const QByteArray& text);

// The name that a file "DELETE <name>.TXT" gives; nothing for other files.
std::optional<QString> DeletedName(const QString& fileName);

// The file that asks for the removal of a file.
QString DeletingFile(const QString& name);

// Whether a name in an option's folder means something else than a file to be copied.
bool IsInstruction(const QString& fileName);

enum class DenserRule {
    // A picture that is replaced or removed takes along its larger pictures (`top@2x.png` beside `top.png`),
    // unless the option has them too: they show what the picture was before.
    TakeAlong,
    Leave,
};

// What applying an option does. `files`: those of the option, in byte order of names. `skinFiles`: the names
// of the skin's files. `skinIni`: the contents of its skin.ini. Each file of the result is named once, and
// none is removed that does not exist. Fails, with a text for the user, for a name that is not that of a file
// in the folder, and for keys that cannot be written.
tl::expected<std::vector<SkinChange>, QString> PlanOption(const std::vector<OptionFile>& files,
                                                          const QStringList& skinFiles,
                                                          const QByteArray& skinIni,
                                                          DenserRule rule = DenserRule::TakeAlong);

} // namespace paneda
