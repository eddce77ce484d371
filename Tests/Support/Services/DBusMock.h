#pragma once

#include <QProcess>

#include <functional>

namespace quorvel::tests {

/// A service of the system bus, simulated by dbusmock in a separate process on this test's private
/// bus.
class DBusMock final
{
public:
    ~DBusMock();

    /// `serviceTemplate` is the name of a dbusmock template or a file of ours. Ends the test if the
    /// service does not start.
    void start(const QString &serviceTemplate, const std::function<bool()> &isServing);
    /// Ends it as a crash would.
    void stop();

    /// Keeps its bus name and answers nobody.
    void freeze();
    void thaw();

private:
    QProcess m_process;
};

} // namespace quorvel::tests
