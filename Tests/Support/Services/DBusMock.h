#pragma once

#include <QProcess>

#include <functional>

namespace quorvel::tests {

/// A service of the system bus as dbusmock plays it, in a process of its own on this test's private
/// bus.
class DBusMock final
{
public:
    ~DBusMock();

    /// `serviceTemplate` is one of dbusmock's by its name, or a file of ours. Ends the test where
    /// the service does not come up.
    void start(const QString &serviceTemplate, const std::function<bool()> &isServing);
    /// As if it had crashed.
    void stop();

    /// Keeps its name on the bus and answers nobody.
    void freeze();
    void thaw();

private:
    QProcess m_process;
};

} // namespace quorvel::tests
