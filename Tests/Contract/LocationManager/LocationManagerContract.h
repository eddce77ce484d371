#pragma once

#include "Platform/Location/LocationManager.h"

#include <QObject>

#include <memory>

namespace quorvel::tests {

/// The promises of every location manager.
class LocationManagerContract : public QObject
{
    Q_OBJECT

protected:
    /// A new manager without any request.
    [[nodiscard]] virtual std::unique_ptr<LocationManager> make() = 0;

    /// The user's answer to every later request. At first they agree.
    virtual void refuse() = 0;
    /// The machine's position from now on.
    virtual void standAt(double latitude, double longitude, double accuracyMeters) = 0;
    /// From now on the position is unknown.
    virtual void getLost() = 0;
    /// Makes the manager answer, if it does not do so by itself.
    virtual void answer() {}

private slots:
    void init();
    void cleanup() { m_manager.reset(); }

    void atFirstTheStatusIsNotDetermined();
    void aPermissionIsToldOnceAndStays();
    void aRefusalIsTheStatusWhileItIsTold();
    void aPositionIsToldOnceTheNewestLast();
    void everyRequestHasItsPosition();
    void aMachineThatIsLostFailsInWords();
    void aRefusedPositionFailsInWords();
    void aNewRequestTakesThePlaceOfAnOpenOne();

private:
    /// The signals in their order, each with the status at that time.
    [[nodiscard]] QStringList toldAfter(void (LocationManager::*request)(), const QString &last);

    std::unique_ptr<LocationManager> m_manager;
    QStringList m_told;
    QList<Location> m_locations;
    QString m_words;
};

} // namespace quorvel::tests
