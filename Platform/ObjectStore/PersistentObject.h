#pragma once

#include <QObject>

#include <memory>

namespace quorvel {

struct EntityDescription;
struct EntityTable;
class ModelContext;
class PersistentObject;

/// Tells whoever shows an object that one of its attributes was written.
class ChangeNotifier final : public QObject
{
    Q_OBJECT

signals:
    void changed();
};

/// Lets nobody but the store make an object without its attributes.
class FromStore
{
    FromStore() = default;
    template <class Entity>
    friend std::shared_ptr<PersistentObject> makeFromStore();
};

/// A stored object. There is one for each row in the process, so that two references are equal
/// exactly when they denote the same row. Main thread only.
class PersistentObject
{
public:
    PersistentObject() = default;
    PersistentObject(const PersistentObject &) = delete;
    PersistentObject &operator=(const PersistentObject &) = delete;
    virtual ~PersistentObject();

    [[nodiscard]] virtual const EntityDescription &entityDescription() const = 0;

    /// Written to the store by a save that returned, and not deleted since.
    [[nodiscard]] bool isStored() const { return m_state == State::Stored; }
    /// Inserted, and waiting for a save to succeed.
    [[nodiscard]] bool isPending() const { return m_state == State::Pending; }

    /// Emits `changed()` after every write that changes a value, whether or not the object was ever
    /// inserted. Made when first asked for.
    [[nodiscard]] ChangeNotifier &notifier();

protected:
    /// Writes an attribute. Writing the value it already has changes nothing.
    template <class Value>
    void write(Value &member, Value value)
    {
        if (member == value)
            return;
        member = std::move(value);
        didChange();
    }

    /// The context that the object is inserted in or came from, if any.
    [[nodiscard]] ModelContext *context() const;

private:
    friend class ModelContext;

    enum class State : quint8 { Detached, Pending, Stored };

    void didChange();
    void notify();

    EntityTable *m_table = nullptr;
    qint64 m_row = 0; ///< 0 until stored
    std::unique_ptr<ChangeNotifier> m_notifier;
    qint32 m_readAtVersion = 0;
    State m_state = State::Detached;
    bool m_changed = false;
    bool m_deletionPending = false;
};

template <class Entity>
std::shared_ptr<PersistentObject> makeFromStore()
{
    return std::make_shared<Entity>(FromStore());
}

} // namespace quorvel
