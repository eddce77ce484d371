#include "Quorvel/ScenesLoader.h"

#include "Platform/Errors/LocalizedError.h"

#include <QCoreApplication>

namespace quorvel {

namespace {

using namespace Qt::StringLiterals;

class ScenesModuleError final : public LocalizedError
{
public:
    explicit ScenesModuleError(QString reason)
        : m_reason(std::move(reason))
    {}

    [[nodiscard]] QString errorDescription() const override
    {
        return u"Quorvel is not installed completely: %1"_s.arg(m_reason);
    }

private:
    QString m_reason;
};

QString modulePath()
{
    return QCoreApplication::applicationDirPath() + u"/" QUORVEL_SCENES_MODULE ""_s;
}

} // namespace

ScenesLoader::ScenesLoader()
    : m_module(modulePath())
{}

std::unique_ptr<Scenes> ScenesLoader::makeScenes(SceneContext context)
{
    auto *plugin = qobject_cast<ScenesPlugin *>(m_module.instance());
    if (!plugin)
        throw ScenesModuleError(m_module.errorString());
    return plugin->makeScenes(std::move(context));
}

} // namespace quorvel
