#include "Features/History/Share/ShareState.h"

#include <QtGlobal>

namespace quorvel::ShareTexts {

using namespace Qt::StringLiterals;

QString label(ShareState state)
{
    switch (state) {
    case ShareState::Idle:
        return u"Share"_s;
    case ShareState::Working:
        return u"Sharing…"_s;
    case ShareState::Copied:
        return u"Copied!"_s;
    case ShareState::Saved:
        return u"Saved to Downloads"_s;
    }
    Q_UNREACHABLE();
}

QString symbol(ShareState state)
{
    switch (state) {
    case ShareState::Idle:
        return u"square.and.arrow.up"_s;
    case ShareState::Working:
        return {};
    case ShareState::Copied:
    case ShareState::Saved:
        return u"checkmark"_s;
    }
    Q_UNREACHABLE();
}

} // namespace quorvel::ShareTexts
