#include "Platform/ObjectStore/PersistentObject.h"

#include "Platform/ObjectStore/ModelContext.h"

namespace quorvel {

PersistentObject::~PersistentObject()
{
    if (m_table)
        m_table->rows.remove(m_row);
}

ChangeNotifier &PersistentObject::notifier()
{
    if (!m_notifier)
        m_notifier = std::make_unique<ChangeNotifier>();
    return *m_notifier;
}

ModelContext *PersistentObject::context() const
{
    return m_table ? m_table->context : nullptr;
}

void PersistentObject::didChange()
{
    if (m_state == State::Stored && !m_changed) {
        m_changed = true;
        context()->keepChanged(*this);
    }
    notify();
}

void PersistentObject::notify()
{
    if (m_notifier)
        emit m_notifier->changed();
}

} // namespace quorvel
