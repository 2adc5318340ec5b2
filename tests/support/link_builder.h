#pragma once

#include <QByteArray>
#include <QString>

namespace paneda::test {

// Parts of a Windows shortcut file; those that are empty are left out.
struct LinkParts {
    QByteArray ItemList = {}; // shell items
    QString LocalPath = {};
    QString WideLocalPath = {}; // in UTF-16, besides the one in Windows-1252
    QString NetworkName = {};   // "\\server\share"
    QString WideNetworkName = {};
    QString Suffix = {}; // of both paths
    QString WideSuffix = {};
    QString Description = {};
    QString RelativePath = {};
    QString WorkingFolder = {};
    QString Arguments = {};
    QString IconLocation = {};
    QString EnvironmentPath = {};
    bool WideEnvironment = true;
    bool WideTexts = true;
    bool LastBlock = true; // whether the file ends as it should
    quint32 MoreFlags = 0;
    qint32 IconIndex = 0;
    quint32 ShowCode = 1;
};

QByteArray MakeLink(const LinkParts& parts);

} // namespace paneda::test
