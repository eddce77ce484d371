#pragma once

#include "Tests/Support/Patience.h"
#include "Tests/Support/QuickTest.h"

#include <QAccessible>
#include <QAccessibleInterface>
#include <QQuickView>
#include <QSGRendererInterface>
#include <QUrl>

#include <memory>

namespace quorvel::tests {

/// Shows the sheet with one of every component, for their tests. Null if it cannot be shown. From
/// then on a warning fails the case.
inline std::unique_ptr<QQuickView> openSheet()
{
    QuickTest::failOnWarnings();
    if (QQuickWindow::sceneGraphBackend() != u"software")
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    auto view = std::make_unique<QQuickView>();
    view->setSource(QUrl(QStringLiteral("qrc:/Sheet.qml")));
    view->show();
    if (!view->rootObject() || !QTest::qWaitForWindowActive(view.get(), patienceMilliseconds))
        return nullptr;
    return view;
}

/// The item's interface for assistive tools.
inline QAccessibleInterface *accessible(QObject *object)
{
    return QAccessible::queryAccessibleInterface(object);
}

} // namespace quorvel::tests
