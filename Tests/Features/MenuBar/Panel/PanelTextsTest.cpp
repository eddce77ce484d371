#include "Features/MenuBar/Panel/PanelTexts.h"

#include "Core/Support/AppError.h"
#include "Tests/Support/SilentError.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

class PanelTextsTest final : public QObject
{
    Q_OBJECT

private slots:
    void anErrorWithoutADescriptionHasASentence()
    {
        const SilentError silent;
        QCOMPARE(PanelTexts::error(&silent), u"Đã có lỗi xảy ra."_s);
        const AppError told = AppError::noCafeFound();
        QCOMPARE(PanelTexts::error(&told), u"No café found nearby."_s);
        QCOMPARE(PanelTexts::error(nullptr), QString());
    }
};

} // namespace quorvel::tests

QTEST_APPLESS_MAIN(quorvel::tests::PanelTextsTest)
#include "PanelTextsTest.moc"
