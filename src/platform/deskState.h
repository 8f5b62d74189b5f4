// The state that the program remembers between starts: the values and folders that kept.h lists. It is kept in the
// user's state folder, apart from the settings, and no other account can read it. The remembered values are optional:
// if their file is damaged, too large, not a plain file or cannot be written, nothing is remembered and nothing is
// reported. folderFor() does report a folder that cannot be made.
#pragma once

#include "platform/kept.h"
#include "platform/result.h"
#include <QVariant>

namespace platform {

class DeskState {
public:
    // The state of the user, or, for tests and tools, a state kept in `folder`.
    DeskState();
    explicit DeskState(const QString &folder);

    template <class Value>
    Value value(const Kept<Value> &kept) const {
        return valueOf<Value>(kept.key.toString(), kept.fallback);
    }
    template <class Value>
    Value value(const KeptByWindow<Value> &kept, const QString &window) const {
        return valueOf<Value>(window + u'/' + kept.key, kept.fallback);
    }
    template <class Value>
    void keep(const Kept<Value> &kept, const std::type_identity_t<Value> &value) const {
        write(kept.key.toString(), value);
    }
    template <class Value>
    void keep(const KeptByWindow<Value> &kept, const QString &window, const std::type_identity_t<Value> &value) const {
        write(window + u'/' + kept.key, value);
    }

    // Returns the path of the folder in the state folder, with a separator at its end, and makes it if missing. Fails
    // if it cannot be made or written to.
    Result<QString> folderFor(const KeptFolder &folder) const;

private:
    template <class Value>
    Value valueOf(const QString &key, const Default<Value> &fallback) const {
        if (const QVariant found = read(key); found.isValid())
            return found.value<Value>();
        if constexpr (std::is_same_v<Default<Value>, Value>)
            return fallback;
        else
            return Value();
    }
    QVariant read(const QString &key) const; // an invalid value if nothing is kept
    void write(const QString &key, const QVariant &value) const;
    QString file() const;

    QString m_folder;
};

} // namespace platform
