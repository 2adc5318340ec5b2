#include "made_tree.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <chrono>
#include <filesystem>

namespace {

void MakeNode(const QString& folder, int number) {
    QDir().mkpath(folder);
    QFile file(folder + QStringLiteral("/Properties.ini"));
    const QByteArray text =
        "[Properties]\r\nName=Node number " + QByteArray::number(number) +
        "\r\nDescription=\r\nSort=" + QByteArray::number(qint64(number) * 900'000).rightJustified(10, '0') +
        "\r\nLast Edit User=Master\r\nLast Edit Date=2026-01-02\r\n"
        "Last Edit Time=10:11:12\r\nLast All Level Edit Time=2026-01-02 10:11:12\r\n";
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        qFatal("Cannot write %s", qPrintable(file.fileName()));
    QFile content(folder + QStringLiteral("/content.rtf"));
    if (!content.open(QIODevice::WriteOnly) || content.write("{\\rtf1}") < 0)
        qFatal("Cannot write %s", qPrintable(content.fileName()));
}

QString Number(int number) {
    return QString::number(number).rightJustified(6, u'0');
}

} // namespace

void MakeTree(const QString& folder, int count, bool flat) {
    for (int i = 1; i <= count; ++i) {
        QString path = folder;
        if (flat) {
            path += u'/' + Number(i);
        } else {
            QStringList parts;
            for (int n = i; n > 0; n = (n - 1) / 10)
                parts.prepend(Number((n - 1) % 10 + 1));
            path += u'/' + parts.join(u'/');
        }
        MakeNode(path, i);
    }
}

double TimeOf(const std::function<void()>& function) {
    const auto begin = std::chrono::steady_clock::now();
    function();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
}

double Median(std::vector<double> times) {
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

double MedianOf(const std::function<void()>& function) {
    std::vector<double> times;
    for (int run = 0; run < kRuns; ++run)
        times.push_back(TimeOf(function));
    return Median(times);
}

void Walk(const QString& folder) {
    qint64 bytes = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.toStdString())) {
        if (entry.path().filename() != "Properties.ini")
            continue;
        QFile file(entry.path());
        if (file.open(QIODevice::ReadOnly))
            bytes += file.readAll().size();
    }
    if (bytes == 0)
        qFatal("Nothing was read.");
}
