// What most files of the project include of Qt and of the standard library. It is read once for a whole
// build. Each file still includes what it uses: a build with PANEDA_PRECOMPILE=OFF shows what is missing.

#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include <QAbstractItemModel>
#include <QByteArray>
#include <QCborArray>
#include <QCborMap>
#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QImage>
#include <QList>
#include <QObject>
#include <QPainter>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QStringView>
#include <QTemporaryDir>
#include <QTextDocument>
#include <QTextTable>
#include <QThread>
#include <QUrl>
#include <QUuid>
#include <QtEndian>
#include <tl/expected.hpp>
