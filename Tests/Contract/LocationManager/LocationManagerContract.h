#pragma once

#include "Platform/Location/LocationManager.h"

#include <QObject>

#include <memory>

namespace quorvel::tests {

/// What every location manager promises.
class LocationManagerContract : public QObject
{
    Q_OBJECT

protected:
    /// One that was asked nothing yet.
    [[nodiscard]] virtual std::unique_ptr<LocationManager> make() = 0;

    /// What the user says to every request from now on; at first they agree.
    virtual void refuse() = 0;
    /// Where the machine is from now on.
    virtual void standAt(double latitude, double longitude, double accuracyMeters) = 0;
    /// From now on nobody knows where it is.
    virtual void getLost() = 0;
    /// Has what was asked for be answered, where that does not happen by itself.
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
    /// What was told, in order, each with the status at that time.
    [[nodiscard]] QStringList toldAfter(void (LocationManager::*request)(), const QString &last);

    std::unique_ptr<LocationManager> m_manager;
    QStringList m_told;
    QList<Location> m_locations;
    QString m_words;
};

} // namespace quorvel::tests
