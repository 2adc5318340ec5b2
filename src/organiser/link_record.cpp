#include "organiser/link_record.h"

#include <array>

namespace paneda {

namespace {

const QString kSection = QStringLiteral("Properties");

struct Field {
    QStringView Key;
    QString LinkResult::*Value;
};

constexpr std::array<Field, 5> kFields{{{u"Target", &LinkResult::Target},
                                        {u"Parameter", &LinkResult::Parameter},
                                        {u"Start In", &LinkResult::StartIn},
                                        {u"Window State", &LinkResult::WindowState},
                                        {u"Description", &LinkResult::Description}}};

// Reading drops blanks and one pair of quotes around a value, and a command line may need its own.
QString Protected(const QString& value) {
    const bool isQuoted = value.size() > 1 && value.front() == value.back() &&
                          (value.front() == u'"' || value.front() == u'\'');
    return isQuoted || value.trimmed() != value ? QString(u'"' + value + u'"') : value;
}

} // namespace

LinkResult ReadLink(const DiskPath& record) {
    const IniText text = ReadIniFile(record);
    LinkResult link;
    for (const Field& field : kFields)
        link.*field.Value = text.Value(kSection, field.Key);
    return link;
}

IniResult SetLink(IniText& record, const LinkResult& link) {
    for (const Field& field : kFields) {
        if (const IniResult set = record.SetValue(kSection, field.Key, Protected(link.*field.Value)); !set)
            return set;
    }
    return {};
}

FileResult RewriteLink(const DiskPath& record, const LinkResult& link) {
    // One that has been deleted meanwhile is not made again.
    const auto bytes = ReadFileBytes(record, kMaxIniFile);
    if (!bytes)
        return tl::make_unexpected(bytes.error());
    IniText text(*bytes);
    if (const IniResult set = SetLink(text, link); !set)
        return Failure(record.Text(), set.error());
    return ReplaceFile(record, text.Bytes());
}

} // namespace paneda
