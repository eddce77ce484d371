#pragma once

#include <QPluginLoader>

namespace quorvel {

/// A part of the program in a library of its own, loaded on first use: everything that the icon
/// alone does not need.
class ProgramModule final
{
public:
    /// The path relative to the program's folder.
    explicit ProgramModule(const QString &path);

    /// Throws LocalizedError if the module is missing or does not fit.
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
