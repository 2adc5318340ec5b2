#pragma once

#include <QHash>
#include <QMutex>
#include <QString>

namespace paneda {

// What is known about each alias. The thread that asks for sounds and the thread that plays them share it.
// Each call of Play gets a ticket, so that a late message about an old sound does not change the state of the
// new sound under the same alias.
class SoundBoard {
public:
    // The alias begins to play; returns its ticket.
    int Begin(const QString& alias) {
        const QMutexLocker lock(&mutex_);
        entries_[alias] = {++lastTicket_, true};
        return lastTicket_;
    }

    // The sound with this ticket has ended.
    void End(const QString& alias, int ticket) {
        const QMutexLocker lock(&mutex_);
        if (const auto entry = entries_.find(alias); entry != entries_.end() && entry->Ticket == ticket)
            entry->IsPlaying = false;
    }

    // The sound with this ticket could not be played.
    void Fail(const QString& alias, int ticket) {
        const QMutexLocker lock(&mutex_);
        if (entries_.value(alias).Ticket == ticket)
            entries_.remove(alias);
    }

    void Stop(const QString& alias) {
        const QMutexLocker lock(&mutex_);
        if (const auto entry = entries_.find(alias); entry != entries_.end())
            entry->IsPlaying = false;
    }

    void Close(const QString& alias) {
        const QMutexLocker lock(&mutex_);
        entries_.remove(alias);
    }

    void CloseAll() {
        const QMutexLocker lock(&mutex_);
        entries_.clear();
    }

    // Whether the sound with this ticket is still wanted.
    bool IsWanted(const QString& alias, int ticket) const {
        const QMutexLocker lock(&mutex_);
        const Entry entry = entries_.value(alias);
        return entry.Ticket == ticket && entry.IsPlaying;
    }

    QString Status(const QString& alias) const {
        const QMutexLocker lock(&mutex_);
        const auto entry = entries_.find(alias);
        if (entry == entries_.end())
            return {};
        return entry->IsPlaying ? QStringLiteral("playing") : QStringLiteral("stopped");
    }

private:
    struct Entry {
        int Ticket = 0;
        bool IsPlaying = false;
    };

    mutable QMutex mutex_;
    QHash<QString, Entry> entries_;
    int lastTicket_ = 0;
};

} // namespace paneda
