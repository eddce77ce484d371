#include "Features/Terminal/ExitStatus.h"

#include "Core/Support/Texts/PrintableText.h"
#include "Platform/Terminal/Terminal.h"

namespace quorvel {

void complain(Terminal &terminal, const QString &sentence)
{
    terminal.note("quorvel: " + PrintableText::line(sentence).toUtf8() + '\n');
}

} // namespace quorvel
