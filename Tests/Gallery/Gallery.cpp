#include "Tests/Gallery/Gallery.h"

#include "Core/DesignSystem/Theme/Theme.h"

#include <QQmlEngine>
#include <QQuickItem>

namespace quorvel::tests {

Gallery::Gallery(QQmlEngine &engine)
    : m_engine(engine)
{}

void Gallery::show(int index, QQuickItem *place)
{
    m_stage.emplace(m_engine, *place);
    m_states.at(index).make(*m_stage);
    m_stage->keepAnswering();
    m_stage->layOut();
    place->setSize(m_stage->size());
}

void Gallery::setDark(bool dark)
{
    Theme::shared().setStyle(dark ? AppearanceStyle::Dark : AppearanceStyle::Light);
}

QStringList Gallery::names() const
{
    QStringList names;
    for (const GalleryState &state : m_states)
        names.append(state.name);
    return names;
}

} // namespace quorvel::tests
