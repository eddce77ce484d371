#include "Features/MenuBar/Panel/PanelTexts.h"

#include "Platform/Errors/LocalizedError.h"

namespace quorvel::PanelTexts {

using namespace Qt::StringLiterals;

QString error(const LocalizedError *error)
{
    return sentenceOf(error, u"Đã có lỗi xảy ra."_s);
}

} // namespace quorvel::PanelTexts
