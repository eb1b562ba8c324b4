// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The portfolio document: its holdings in table order, its title holders sorted by name, its own
// redemption value reader, the valuation date and summary mode, the undo history and the file.
// Which holdings a window shows is the window's (a HoldingFilter), not the document's.
//
// The document observes the holdings and people it holds and records the inverse of every change
// on its undo stack ("Edit", "Insert Holding", "Delete Holding", "Edit People"); the edited state
// follows the stack's clean state. No widgets: windows and the command line use the same object.
#include "document/DocumentFileWriter.h"
#include "model/Holding.h"
#include "model/HoldingFilter.h"
#include "model/Portfolio.h"
#include "base/Money.h"
#include "model/Person.h"
#include "base/ValidationError.h"
#include "valuation/BondAssessor.h"
#include "valuation/HoldingFigures.h"
#include "valuation/InterestSummary.h"
#include "valuation/ValuationMonth.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QDateTime>
#include <QList>
#include <QObject>
#include <QString>
#include <QVariant>
#include <memory>
#include <utility>

class PeopleStore;
namespace PortfolioReading { struct Result; }
class PortfolioRecorder;
class QUndoStack;
class Series;

// Why a save failed: the portfolio could not be encoded (encodeError, a sentence of the
// encoder), or its file could not be written (file).
struct PortfolioSaveFailure
{
    QString encodeError;
    FileWriteResult file;
};

namespace PortfolioFile {
// Every portfolio file carries this extension (without the dot).
inline constexpr const char *Extension = "bondportfolio";
inline constexpr const char *TypeName = "Savings Bond Portfolio";
}

// The names the Edit menu shows after "Undo" and "Redo".
namespace UndoActionName {
inline constexpr const char *Edit = QT_TRANSLATE_NOOP("UndoActionName", "Edit");
inline constexpr const char *InsertHolding = QT_TRANSLATE_NOOP("UndoActionName", "Insert Holding");
inline constexpr const char *DeleteHolding = QT_TRANSLATE_NOOP("UndoActionName", "Delete Holding");
inline constexpr const char *EditPeople = QT_TRANSLATE_NOOP("UndoActionName", "Edit People");
inline constexpr const char *Redeem = QT_TRANSLATE_NOOP("UndoActionName", "Redeem");
inline constexpr const char *Unredeem = QT_TRANSLATE_NOOP("UndoActionName", "Un-redeem");
inline QString text(const char *name) { return QCoreApplication::translate("UndoActionName", name); }
}

class BondPortfolio : public QObject
{
    Q_OBJECT
public:
    static constexpr const char *ValueOfDateErrorDomain = ValuationMonth::ErrorDomain;
    static constexpr const char *RedemptionErrorDomain = "redemption";
    static constexpr const char *NoValuationDataMessage = ValuationMonth::NoValuationDataMessage;

    // A new, empty portfolio: no holdings, the store's family as title holders, the cumulative summary,
    // the initial valuation date, no undo history. The store defaults to PeopleStore::shared(),
    // the database to the working copy.
    explicit BondPortfolio(PeopleStore *people = nullptr, const QString &databasePath = QString(),
                           QObject *parent = nullptr);
    ~BondPortfolio() override;

    // The holdings and title holders, as data.
    const Portfolio &data() const { return m_data; }

    // --- Holdings ---
    const QList<HoldingRef> &holdings() const { return m_data.holdings; }
    // Installs a whole list (loading, import). Records nothing for undo.
    void setHoldings(const QList<HoldingRef> &holdings);
    // Undoable insertion and removal of single holdings. The holding should know its portfolio.
    void insertHolding(const HoldingRef &holding, int index);
    void appendHolding(const HoldingRef &holding) { insertHolding(holding, int(m_data.holdings.size())); }
    // Appends a whole list (an import) as one undoable "Insert Holding".
    void appendHoldings(const QList<HoldingRef> &holdings);
    void removeHoldingAt(int index);
    int indexOfHolding(const Holding *holding) const;
    // A new holding with its defaults, adopted and inserted (undoable "Insert Holding").
    HoldingRef addNewHolding(int index);
    // Readies a holding for this portfolio before it is inserted: swaps its people for the
    // portfolio's own equal objects. An owner the portfolio does not list joins its title holders
    // and leaves this holding's owner role, as files and users have long relied on.
    void adopt(Holding &holding);

    // --- Redeemed bonds (BondPortfolioRedemptions.cpp) ---
    const QList<HoldingRef> &redeemedHoldings() const { return m_data.redeemed; }
    // Installs a whole list (loading). Records nothing for undo.
    void setRedeemedHoldings(const QList<HoldingRef> &holdings);
    int indexOfRedeemed(const Holding *holding) const;
    // Why bonds of the holding cannot be cashed in the month (before its issue month, within its
    // holding period); true when they can.
    bool validateRedemption(const Holding &holding, Month month, ValidationError *error = nullptr) const;
    // What the database says `quantity` bonds of the holding were worth in the month; 0 without a value.
    Pennies redemptionValue(const Holding &holding, qint32 quantity, Month month) const;
    // Cashes `quantity` of the held holding's bonds (all of them: the holding moves to the redeemed
    // list; fewer: a copy of that quantity joins it and the rest stay held), one undoable "Redeem".
    bool redeem(const HoldingRef &holding, qint32 quantity, Month month, Pennies amount, ValidationError *error = nullptr);
    // Puts a redeemed holding back among the held ones (undoable "Un-redeem").
    void unredeemAt(int redeemedIndex);
    // Deletes a redeemed holding (undoable "Delete Holding").
    void removeRedeemedAt(int redeemedIndex);
    // Whether the person reports interest every year; set as an undoable "Edit People".
    bool reportsInterestYearly(const Person *person) const;
    void setReportsInterestYearly(const PersonRef &person, bool yearly);

    // --- Title holders ---
    const QList<PersonRef> &titleHolders() const { return m_data.titleHolders; }
    // Sorts by name and records an undoable "Edit People".
    void setTitleHolders(const QList<PersonRef> &people);
    // Removes the person from the list and from every role on every holding.
    void deleteTitleHolderFromAllBonds(const PersonRef &person);
    PeopleStore &peopleStore() const { return *m_people; }
    // How many different people the file last read names whom the people store does not know.
    // They are not in the document, so saving it drops them: callers that save warn first.
    int missingPeopleCount() const { return m_missingPeople; }

    QList<const Series *> series() const;
    const BondAssessor &assessor() const { return *m_assessor; }
    // Readies the database values of these holdings ahead of reading all their figures.
    void prefetchValues(const QList<HoldingRef> &holdings) const;

    // --- Valuation date and summary ---
    QDateTime valueOfDate() const { return m_valueOfDate; }
    Month valueOfMonth() const { return m_valueOfMonth; }
    // What this portfolio's figures are computed against: its database, its valuation month.
    ValuationContext valuationContext() const { return {m_assessor.get(), m_valueOfMonth}; }
    HoldingFigures figuresOf(const Holding &holding) const { return {valuationContext(), holding.facts()}; }
    // Stores the instant given; an invalid date is refused (returns false).
    bool setValueOfDate(const QDateTime &date);
    bool validateValueOfDate(const QDateTime &proposed, ValidationError *error = nullptr) const;
    // The earlier of now and the database's latest month; now when the database has none.
    QDateTime initialValueOfDate() const;
    SummaryMode summaryMode() const { return m_summaryMode; }
    void setSummaryMode(SummaryMode mode);
    // The summary of the holdings the filter shows, in the summary mode.
    QList<InterestSummaryRow> interestSummary(const HoldingFilter &filter = HoldingFilter()) const;

    // --- Undo and edited state ---
    QUndoStack *undoStack() const { return m_undoStack; }
    // What the document records between these is one undo step under the name of what the user
    // did (an UndoActionName); a step that records nothing leaves nothing to undo. Steps nest.
    void beginUndoStep(const char *actionName);
    void endUndoStep();
    bool isEdited() const;
    // Marks the document changed without an undo action (e.g. after an import).
    void markEdited();
    // Records the current state as saved.
    void markSaved();

    // --- File ---
    QString fileName() const { return m_fileName; }
    void setFileName(const QString &fileName);
    // The file's base name without extension, or "Untitled".
    QString displayName() const;
    // The keyed archive of {"holdings", "titleHolders"}; empty for another type name.
    QByteArray dataRepresentation(const QString &typeName = QString::fromLatin1(PortfolioFile::TypeName),
                                  QString *error = nullptr) const;
    // Reads a keyed archive (also the older form whose root is the list of holdings). Refuses
    // anything it cannot decode, leaving the document as it was. Clears the undo history.
    bool loadDataRepresentation(const QByteArray &data, QString *error = nullptr);
    // Atomic: the old file stays whole when writing fails. Marks the document saved.
    bool saveToFile(const QString &path, PortfolioSaveFailure *failure = nullptr);
    bool readFromFile(const QString &path, QString *error = nullptr);

public:
    // The database changed under the document (values installed, here or by another process):
    // every figure and the interest summary are read again.
    void redemptionValuesChanged();

signals:
    // Every change of the lists is announced before and after, as item models need.
    void holdingsAboutToBeReset();
    void holdingsReset();
    void holdingAboutToBeInserted(int index);
    void holdingInserted(int index);
    void holdingAboutToBeRemoved(int index);
    void holdingRemoved(int index);
    // A value of one holding changed.
    void holdingChanged(Holding *holding, HoldingProperty property);
    // The redeemed list, announced as the held one is.
    void redeemedAboutToBeReset();
    void redeemedReset();
    void redeemedAboutToBeInserted(int index);
    void redeemedInserted(int index);
    void redeemedAboutToBeRemoved(int index);
    void redeemedRemoved(int index);
    void yearlyInterestReportersChanged();
    void titleHoldersAboutToChange();
    void titleHoldersChanged();
    void valueOfDateChanged();
    // Every figure may read differently: the valuation date moved or the database's values did.
    void figuresChanged();
    void summaryModeChanged();
    void interestSummaryChanged();
    void editedChanged(bool edited);
    void fileNameChanged();

private:
    friend class PortfolioRecorder;
    friend class HoldingPlacementCommand;
    friend class ChangeValueCommand;
    friend class SetTitleHoldersCommand;
    friend class AppendHoldingsCommand;
    friend class RedeemCommand;
    friend class RedeemedPlacementCommand;
    friend class YearlyReportersCommand;
    void insertRedeemedWithoutRecording(const HoldingRef &holding, int index);
    HoldingRef takeRedeemedWithoutRecording(int index);
    void setYearlyInterestReportersWithoutRecording(const QStringList &ids);
    // Set values without recording them: what undo and redo use.
    void changeValue(Holding *holding, HoldingProperty property, const QVariant &value);
    void setTitleHoldersWithoutRecording(const QList<PersonRef> &people);
    void insertHoldingWithoutRecording(const HoldingRef &holding, int index);
    HoldingRef takeHoldingWithoutRecording(int index);
    void installTitleHolders(const QList<PersonRef> &people);
    void storeValueOfDate(const QDateTime &date);
    bool install(const PortfolioReading::Result &read, QString *error);

    Portfolio m_data;
    SummaryMode m_summaryMode = SummaryMode::Cumulative;
    std::unique_ptr<BondAssessor> m_assessor;
    QDateTime m_valueOfDate;
    Month m_valueOfMonth; // kept with the date by storeValueOfDate()
    PeopleStore *m_people;
    QUndoStack *m_undoStack;
    PortfolioRecorder *m_recorder;
    QString m_fileName;
    int m_missingPeople = 0;
};

// One user action on several items, undone as one: a BondPortfolio undo step for its lifetime.
class UndoStep
{
public:
    UndoStep(BondPortfolio &portfolio, const char *actionName) : m_portfolio(portfolio)
    {
        m_portfolio.beginUndoStep(actionName);
    }
    ~UndoStep() { m_portfolio.endUndoStep(); }
    UndoStep(const UndoStep &) = delete;
    UndoStep &operator=(const UndoStep &) = delete;

private:
    BondPortfolio &m_portfolio;
};
