#pragma once

#include "Core/Support/RecordListModel.h"
#include "_Probes/Loop/MenuBarViewModelProbe.h"
#include "_Probes/ProbeViewModel.h"

namespace quorvel {

/// The diagnostics as their window binds them: the daily loop, the actions, and the log.
class ProbeScreen final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the window")
    Q_PROPERTY(quorvel::MenuBarViewModelProbe *loop READ loop CONSTANT)
    Q_PROPERTY(bool isLocating READ isLocating NOTIFY changed)
    Q_PROPERTY(bool isSearching READ isSearching NOTIFY changed)
    Q_PROPERTY(QObject *log READ log CONSTANT)

public:
    explicit ProbeScreen(const ProbeRoles &roles, QObject *parent = nullptr);

    Q_INVOKABLE void locate() { m_viewModel.locate(); }
    Q_INVOKABLE void searchCafes() { m_viewModel.searchCafes(); }
    Q_INVOKABLE void readCheckIns() { m_viewModel.readCheckIns(); }
    Q_INVOKABLE void copyLog() { m_viewModel.copyLog(); }

    [[nodiscard]] MenuBarViewModelProbe *loop() { return &m_loop; }
    [[nodiscard]] bool isLocating() const { return m_viewModel.isLocating(); }
    [[nodiscard]] bool isSearching() const { return m_viewModel.isSearching(); }
    /// Of LogLine.
    [[nodiscard]] QAbstractItemModel *log() { return &m_log; }

signals:
    void changed();

private:
    void follow();

    ProbeViewModel m_viewModel;
    MenuBarViewModelProbe m_loop;
    RecordListModel<LogLine> m_log;
};

} // namespace quorvel
