#pragma once

#include <QObject>

#include <memory>
#include <utility>

namespace quorvel {

struct EntityDescription;
struct EntityTable;
class ModelContext;
class PersistentObject;

/// Tells observers that an attribute of the object was written.
class ChangeNotifier final : public QObject
{
    Q_OBJECT

signals:
    void changed();
};

/// Lets only the store make an object without its attributes.
class FromStore
{
    FromStore() = default;
    template <class Entity>
    friend std::shared_ptr<PersistentObject> makeFromStore();
};

/// A stored object. There is one per row and process, so two references are equal exactly if they
/// denote the same row. Main thread only.
class PersistentObject
{
public:
    PersistentObject() = default;
    PersistentObject(const PersistentObject &) = delete;
    PersistentObject &operator=(const PersistentObject &) = delete;
    virtual ~PersistentObject();

    [[nodiscard]] virtual const EntityDescription &entityDescription() const = 0;

    /// Stored by a save that returned, and not deleted since.
    [[nodiscard]] bool isStored() const { return m_state == State::Stored; }
    /// Inserted, and waiting for a successful save.
    [[nodiscard]] bool isPending() const { return m_state == State::Pending; }

    /// Emits `changed()` after every write that changes a value, even before the object is
    /// inserted. Created on first use.
    [[nodiscard]] ChangeNotifier &notifier();

protected:
    /// Writes an attribute. Writing the same value changes nothing.
    template <class Value>
    void write(Value &member, Value value)
    {
        if (member == value)
            return;
        member = std::move(value);
        didChange();
    }

    /// The context that the object was inserted into or fetched from, if any.
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
