#pragma once

#include "platform/autostart.h"
#include "platform/foreground.h"
#include "platform/hotkey.h"
#include "platform/outside_request.h"
#include "platform/pointer.h"
#include "platform/sound_player.h"
#include "platform/termination.h"
#include "platform/tray_hosts.h"
#include "platform/work_areas.h"

#include <QPoint>
#include <QScreen>
#include <QStringList>

#include <utility>

namespace paneda::test {

// Keeps what it was asked as "on <path>" or "off <path>", and fails where a test says so.
class FakeAutostart : public Autostart {
public:
    QStringList Asked;
    bool Fails = false;

    FileResult Set(bool on, const QString& executablePath) override {
        Asked.append((on ? QStringLiteral("on ") : QStringLiteral("off ")) + executablePath);
        if (Fails)
            return tl::make_unexpected(FileError{QStringLiteral("/autostart"), QStringLiteral("no room")});
        return {};
    }
    bool IsSet(const QString&) const override { return false; }
};

// Holds a registration until it is taken back or replaced.
class FakeHotkey : public Hotkey {
public:
    Means HasMeans = Means::Grab;
    Answer Answers = Answer::Registered; // to the next registrations
    std::function<void()> Press;         // empty while nothing is registered

    Means Kind() const override { return HasMeans; }
    Answer Register(int, int, std::function<void()> pressed) override {
        Unregister();
        if (Answers == Answer::Registered || Answers == Answer::Asked)
            Press = std::move(pressed);
        return state_ = Answers;
    }
    void Unregister() override {
        Press = nullptr;
        state_ = Answer::Refused;
    }
    Answer State() const override { return state_; }

private:
    Answer state_ = Answer::Refused;
};

class FakePointer : public Pointer {
public:
    bool Sees = true;
    MiddleButtonLook Look;
    bool Watched = false;
    QPoint Place; // pixels

    bool CanSee() const override { return Sees; }
    void WatchMiddleButton(bool on) override { Watched = on; }
    MiddleButtonLook LookAtMiddleButton() override { return Look; }
    QPoint Position() override { return Place; }
};

// A window that is activated becomes the active one.
class FakeForeground : public Foreground {
public:
    WId Active = 0;

    WId ActiveWindow() override { return Active; }
    void Activate(WId window) override { Active = window; }
};

// A test makes the tray come and go.
class FakeTrayHosts : public TrayHosts {
public:
    Kind Now = Kind::None;

    Kind Present() override { return Now; }
    void Watch(std::function<void()> changed) override { changed_ = std::move(changed); }
    void Become(Kind kind) {
        Now = kind;
        changed_();
    }

private:
    std::function<void()> changed_;
};

// No docks.
class FakeWorkAreas : public WorkAreas {
public:
    QRect Of(const QScreen& screen) override { return screen.geometry(); }
};

class FakeRequests : public OutsideRequest {
public:
    QStringList Sent; // executable paths
    std::function<void(const QString&)> Execute;

    bool Listen(const QString&, std::function<void(const QString&)> execute) override {
        Execute = std::move(execute);
        return true;
    }
    void Stop() override { Execute = {}; }
    bool Send(const QString& executablePath) override {
        Sent.append(executablePath);
        return true;
    }
};

class FakeTermination : public Termination {
public:
    void OnRequest(std::function<void()>) override {}
};

// Keeps each call as "play <file name> <alias>", "close all" and the like.
class FakeSounds : public SoundPlayer {
public:
    QStringList Calls;

    void Play(const QString& path, const QString& alias) override {
        Calls.append(QStringLiteral("play ") + path.section(u'/', -1) + u' ' + alias);
    }
    void Stop(const QString& alias) override { Calls.append(QStringLiteral("stop ") + alias); }
    void Close(const QString& alias) override { Calls.append(QStringLiteral("close ") + alias); }
    void CloseAll() override { Calls.append(QStringLiteral("close all")); }
    QString Status(const QString&) const override { return {}; }
};

} // namespace paneda::test
