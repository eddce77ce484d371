#pragma once

#include <QAbstractListModel>
#include <QHash>
#include <QMetaProperty>
#include <QModelIndex>
#include <QVariant>

#include <algorithm>

namespace quorvel {

/// A list of records for a view. Its roles are the records' properties. Setting a new list moves,
/// inserts and removes as few rows as possible, so that the row that the user works in stays. A
/// record is a gadget with a unique `id()`.
template <class Record>
class RecordListModel final : public QAbstractListModel
{
public:
    using QAbstractListModel::QAbstractListModel;

    void setRecords(const QList<Record> &records);
    [[nodiscard]] const QList<Record> &records() const { return m_records; }

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : int(m_records.size());
    }
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

private:
    void place(int row, const Record &record);

    QList<Record> m_records;
};

template <class Record>
void RecordListModel<Record>::setRecords(const QList<Record> &records)
{
    for (int row = 0; row < int(records.size()); ++row)
        place(row, records[row]);
    if (m_records.size() == records.size())
        return;
    beginRemoveRows({}, int(records.size()), int(m_records.size()) - 1);
    m_records.resize(records.size());
    endRemoveRows();
}

/// The rows before this one are in their places already.
template <class Record>
void RecordListModel<Record>::place(int row, const Record &record)
{
    const auto begin = m_records.cbegin();
    const auto isSame = [&record](const Record &other) { return other.id() == record.id(); };
    const int found = int(std::find_if(begin + row, m_records.cend(), isSame) - begin);
    if (found == m_records.size()) {
        beginInsertRows({}, row, row);
        m_records.insert(row, record);
        endInsertRows();
        return;
    }
    if (found != row) {
        beginMoveRows({}, found, found, {}, row);
        m_records.move(found, row);
        endMoveRows();
    }
    if (m_records[row] == record)
        return;
    m_records[row] = record;
    emit dataChanged(index(row), index(row));
}

template <class Record>
QVariant RecordListModel<Record>::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    return Record::staticMetaObject.property(role - Qt::UserRole)
        .readOnGadget(&m_records[index.row()]);
}

template <class Record>
QHash<int, QByteArray> RecordListModel<Record>::roleNames() const
{
    QHash<int, QByteArray> names;
    for (int property = 0; property < Record::staticMetaObject.propertyCount(); ++property)
        names.insert(Qt::UserRole + property, Record::staticMetaObject.property(property).name());
    return names;
}

} // namespace quorvel
