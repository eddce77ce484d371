#pragma once

#include "Tests/Gallery/States/GalleryStates.h"

#include <QObject>
#include <QQmlEngine>
#include <QQuickItem>
#include <QStringList>

#include <optional>

namespace quorvel::tests {

/// The gallery's window uses it: it lists the states and shows one of them.
class Gallery final : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QStringList names READ names CONSTANT)

public:
    explicit Gallery(QQmlEngine &engine);

    /// Replaces the shown state.
    Q_INVOKABLE void show(int index, QQuickItem *place);
    Q_INVOKABLE void setDark(bool dark);

    [[nodiscard]] QStringList names() const;

private:
    QQmlEngine &m_engine;
    QList<GalleryState> m_states = GalleryStates::all();
    std::optional<GalleryStage> m_stage;
};

} // namespace quorvel::tests
