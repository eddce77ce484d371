#pragma once

#include "Core/Support/RecordListModel.h"
#include "Features/CheckIn/Cafe/CafeRow.h"
#include "Features/CheckIn/CheckInViewModel.h"
#include "Features/CheckIn/LocatedTexts.h"
#include "Features/CheckIn/RatingRow.h"
#include "Features/CheckIn/Wifi/WifiScanSection.h"
#include "Features/MenuBar/Loop/MenuBarViewModel.h"

#include <QAbstractItemModel>

namespace quorvel {

/// The check-in screen for its view: the place that the daily loop found, and the form. While the
/// loop has no place, the last one stays. Both view models also serve the terminal and know no
/// view.
class LocatedScreen final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the panel")
    Q_PROPERTY(bool hasCafe READ hasCafe NOTIFY snapshotChanged)
    Q_PROPERTY(QString title READ title NOTIFY snapshotChanged)
    Q_PROPERTY(QString subtitle READ subtitle NOTIFY snapshotChanged)
    Q_PROPERTY(QString headerAction READ headerAction NOTIFY snapshotChanged)
    Q_PROPERTY(QString mapCredit READ mapCredit NOTIFY snapshotChanged)
    Q_PROPERTY(QString weatherCredit READ weatherCredit NOTIFY snapshotChanged)
    Q_PROPERTY(QObject *candidates READ candidates CONSTANT)
    Q_PROPERTY(bool canChange READ canChange NOTIFY snapshotChanged)
    Q_PROPERTY(bool hasWeather READ hasWeather NOTIFY snapshotChanged)
    Q_PROPERTY(int weatherCode READ weatherCode NOTIFY snapshotChanged)
    Q_PROPERTY(bool isDay READ isDay NOTIFY snapshotChanged)
    Q_PROPERTY(QString temperature READ temperature NOTIFY snapshotChanged)
    Q_PROPERTY(QString feels READ feels NOTIFY snapshotChanged)
    Q_PROPERTY(QObject *ratings READ ratings CONSTANT)
    Q_PROPERTY(QString note READ note WRITE setNote NOTIFY noteChanged)
    Q_PROPERTY(quorvel::WifiScanSection *wifi READ wifi CONSTANT)
    Q_PROPERTY(QString errorText READ errorText NOTIFY checkInChanged)
    Q_PROPERTY(QString hintText READ hintText NOTIFY checkInChanged)
    Q_PROPERTY(QString buttonTitle READ buttonTitle NOTIFY checkInChanged)
    Q_PROPERTY(QString buttonSymbol READ buttonSymbol NOTIFY checkInChanged)
    Q_PROPERTY(bool isButtonEnabled READ isButtonEnabled NOTIFY checkInChanged)
    Q_PROPERTY(bool isChoosingOrTyping READ isChoosingOrTyping WRITE setChoosingOrTyping NOTIFY
                   isInUseChanged)

public:
    /// The view models and the Wi-Fi block's services must outlive the screen.
    LocatedScreen(MenuBarViewModel &menuBar, CheckInViewModel &checkIn, const Services &services,
                  Pasteboard &pasteboard, QObject *parent = nullptr);

    /// Call them whenever the screen is shown or hidden. The Wi-Fi block follows.
    Q_INVOKABLE void appear();
    Q_INVOKABLE void disappear();
    /// By row of the picker. A row that no longer exists selects nothing.
    Q_INVOKABLE void selectCafe(int row);
    Q_INVOKABLE void retry();
    Q_INVOKABLE void checkIn();
    /// Rows 0 to 3, scores 1 to 5. Other values change nothing.
    Q_INVOKABLE void setRating(int row, int score);
    void setNote(const QString &note) { m_checkIn.setNote(note); }

    [[nodiscard]] bool hasCafe() const { return snapshot().selectedCafe.has_value(); }
    [[nodiscard]] QString title() const { return LocatedTexts::title(snapshot()); }
    [[nodiscard]] QString subtitle() const { return LocatedTexts::subtitle(snapshot()); }
    [[nodiscard]] QString headerAction() const { return LocatedTexts::headerAction(snapshot()); }
    [[nodiscard]] QString mapCredit() const { return LocatedTexts::mapCredit(snapshot()); }
    [[nodiscard]] QString weatherCredit() const { return LocatedTexts::weatherCredit(snapshot()); }
    [[nodiscard]] QAbstractItemModel *candidates() { return &m_candidates; }
    /// Whether there is another café to choose.
    [[nodiscard]] bool canChange() const { return snapshot().nearbyCandidates.size() > 1; }
    [[nodiscard]] bool hasWeather() const { return snapshot().weather.has_value(); }
    [[nodiscard]] int weatherCode() const;
    [[nodiscard]] bool isDay() const { return snapshot().weather && snapshot().weather->isDay; }
    [[nodiscard]] QString temperature() const { return LocatedTexts::temperature(snapshot()); }
    [[nodiscard]] QString feels() const { return LocatedTexts::feels(snapshot()); }
    [[nodiscard]] QAbstractItemModel *ratings() { return &m_ratings; }
    [[nodiscard]] QString note() const { return m_checkIn.note(); }
    [[nodiscard]] WifiScanSection *wifi() { return &m_wifi; }
    /// Why the last save failed; empty if it did not.
    [[nodiscard]] QString errorText() const;
    /// Why the user cannot check in; empty if they can.
    [[nodiscard]] QString hintText() const;
    [[nodiscard]] QString buttonTitle() const { return button().title; }
    [[nodiscard]] QString buttonSymbol() const { return button().symbol; }
    [[nodiscard]] bool isButtonEnabled() const { return button().isEnabled; }
    /// Whether a new screen would interrupt the user: they choose, type, join a network, or read
    /// the result of a save.
    [[nodiscard]] bool isInUse() const;
    /// The part of it that the view knows.
    [[nodiscard]] bool isChoosingOrTyping() const { return m_isChoosingOrTyping; }
    void setChoosingOrTyping(bool isChoosingOrTyping);

signals:
    void snapshotChanged();
    void noteChanged();
    void checkInChanged();
    void isInUseChanged();

private:
    void followLoop();
    void updateRatings();
    [[nodiscard]] const LocatedSnapshot &snapshot() const { return *m_located.loadedValue(); }
    [[nodiscard]] LocatedTexts::CheckInButton button() const;

    MenuBarViewModel &m_menuBar;
    CheckInViewModel &m_checkIn;
    WifiScanSection m_wifi;
    /// The loop's last result. It counts as loaded even before the first one.
    ViewState<LocatedSnapshot> m_located = ViewState<LocatedSnapshot>::loaded({});
    RecordListModel<CafeRow> m_candidates;
    RecordListModel<RatingRow> m_ratings;
    bool m_isShown = false;
    bool m_isChoosingOrTyping = false;
};

} // namespace quorvel
