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

/// The check-in screen as its view binds it: the place that the daily loop found, and the form for
/// it. While the loop shows no place, the last one stays. Both view models serve the terminal, too,
/// and know of no view.
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
    /// The view models, and what the Wi-Fi block works with, outlive the screen.
    LocatedScreen(MenuBarViewModel &menuBar, CheckInViewModel &checkIn, const Services &services,
                  Pasteboard &pasteboard, QObject *parent = nullptr);

    /// To be called whenever the screen is shown, and hidden; the Wi-Fi block follows.
    Q_INVOKABLE void appear();
    Q_INVOKABLE void disappear();
    /// By the picker's row. One that is gone meanwhile selects nothing.
    Q_INVOKABLE void selectCafe(int row);
    Q_INVOKABLE void retry();
    Q_INVOKABLE void checkIn();
    /// Rows 0 to 3, scores 1 to 5; others change nothing.
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
    /// Why the last save failed; empty unless it did.
    [[nodiscard]] QString errorText() const;
    /// What keeps the user from checking in; empty when nothing does.
    [[nodiscard]] QString hintText() const;
    [[nodiscard]] QString buttonTitle() const { return button().title; }
    [[nodiscard]] QString buttonSymbol() const { return button().symbol; }
    [[nodiscard]] bool isButtonEnabled() const { return button().isEnabled; }
    /// Whether the user is in the middle of something that a screen built anew would take from
    /// them: choosing, typing, joining a network, or reading what a save has come to.
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
    /// What the loop last found, loaded also before it has found anything.
    ViewState<LocatedSnapshot> m_located = ViewState<LocatedSnapshot>::loaded({});
    RecordListModel<CafeRow> m_candidates;
    RecordListModel<RatingRow> m_ratings;
    bool m_isShown = false;
    bool m_isChoosingOrTyping = false;
};

} // namespace quorvel
