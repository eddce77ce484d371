#pragma once

#include <QPluginLoader>

namespace quorvel {

/// A part of the program in a library of its own, brought in when it is first needed: whatever the
/// icon alone can do without.
class ProgramModule final
{
public:
    /// The path from the program's own folder.
    explicit ProgramModule(const QString &path);

    /// Throws LocalizedError when the module is missing or does not fit.
    template <class Plugin>
    [[nodiscard]] Plugin &plugin()
    {
        auto *const plugin = qobject_cast<Plugin *>(m_loader.instance());
        if (!plugin)
            refuse();
        return *plugin;
    }

private:
    [[noreturn]] void refuse() const;

    QPluginLoader m_loader;
};

} // namespace quorvel
