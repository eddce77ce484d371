#include "Quorvel/ProgramModule.h"

#include "Platform/Errors/LocalizedError.h"

#include <QCoreApplication>

#include <utility>

namespace quorvel {

namespace {

using namespace Qt::StringLiterals;

class ProgramModuleError final : public LocalizedError
{
public:
    explicit ProgramModuleError(QString reason)
        : m_reason(std::move(reason))
    {}

    [[nodiscard]] QString errorDescription() const override
    {
        return u"Quorvel is not installed completely: %1"_s.arg(m_reason);
    }

private:
    QString m_reason;
};

} // namespace

ProgramModule::ProgramModule(const QString &path)
    : m_loader(QCoreApplication::applicationDirPath() + u'/' + path)
{}

void ProgramModule::refuse() const
{
    throw ProgramModuleError(m_loader.errorString());
}

} // namespace quorvel
