#pragma once

#include "platform/compositor.h"
#include "platform/drive_space.h"
#include "platform/file_icons.h"
#include "platform/opener.h"
#include "platform/volumes.h"

#include <QColor>
#include <QDir>
#include <QHash>
#include <QStringList>

#include <functional>
#include <utility>
#include <vector>

namespace paneda::test {

// Remembers what was to be started.
class FakeOpener : public Opener {
public:
    std::vector<LaunchRequest> Requests;
    LaunchPaths Paths; // of the last request

    void Open(const LaunchRequest& request, const LaunchPaths& paths) override {
        Requests.push_back(request);
        Paths = paths;
    }
};

// The machine that the test runs on, and what a test mounts, which a host with drive letters does not have.
class FakeVolumes : public Volumes {
public:
    QStringList MountPoints;

    void Refresh(DriveMap& map) override {
        if (QDir::rootPath() == u'/')
            map.UseMountPoints(MountPoints);
    }
    void Watch(std::function<void()> changed) override { changed_ = std::move(changed); }

    // As when a user plugs a stick in; nobody who has stopped to watch hears of it.
    void Mount(const QString& folder) {
        MountPoints.append(folder);
        if (changed_)
            changed_();
    }

private:
    std::function<void()> changed_;
};

// One flat colour as the icon of every target.
class FakeIcons : public FileIcons {
public:
    static constexpr QRgb kColour = 0xFFFF00FF;
    QStringList Targets;

    QImage IconOf(const QString& target, const LaunchPaths&, const IconSize& size) override {
        Targets.append(target);
        QImage icon(size.OnScreen(), size.OnScreen(), QImage::Format_ARGB32_Premultiplied);
        icon.fill(kColour);
        return icon;
    }
    QString TypeNameOf(const QString& fileName) override { return QStringLiteral("type of ") + fileName; }
};

// Volumes by their root.
class FakeSpace : public DriveSpace {
public:
    QHash<QString, VolumeSpace> Spaces;

    std::function<void()> Changed;

    VolumeSpace SpaceOf(const QString& root) override { return Spaces.value(root); }
    void Watch(std::function<void()> changed) override { Changed = std::move(changed); }
};

class FakeCompositor : public Compositor {
public:
    bool Active = true;
    QRegion Shape; // of the last window that got one

    bool IsActive() override { return Active; }
    void SetShape(QWindow&, const QRegion& pixels) override { Shape = pixels; }
};

} // namespace paneda::test
