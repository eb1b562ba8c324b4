#pragma once
// One line of a portfolio: a number of identical bonds of one series, face value and issue
// month, with their serial number, the people named on them and whether they were bought on
// paper. Every money figure is computed on demand from the portfolio's valuation date and
// redemption value database; nothing derived is stored.
//
// Each change is announced with valueChanged(key, old value); a setter given the value the
// holding already has announces nothing, so that nothing is recorded. A change of series, paper,
// issueDate, quantity or faceValue also announces derivedValuesChanged() (value, interestEarned,
// issuePrice, compoundAnnualGrowthRate, currentYield). A setter that changes further keys
// itself (the role rules) ends with one changesCompleted(), so that observers can group them.
#include "base/Money.h"
#include "model/Person.h"
#include "base/Series.h"
#include "base/ValidationError.h"
#include "valuation/BondAssessor.h"

#include <QDateTime>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <memory>

class BondPortfolio;
class Holding;
using HoldingRef = std::shared_ptr<Holding>;

namespace HoldingKey {
inline constexpr const char *Series = "series";
inline constexpr const char *Quantity = "quantity";
inline constexpr const char *FaceValue = "faceValue";
inline constexpr const char *IssueDate = "issueDate";
inline constexpr const char *SerialNumber = "serialNumber";
inline constexpr const char *Owner = "owner";
inline constexpr const char *CoOwner = "coOwner";
inline constexpr const char *Beneficiary = "beneficiary";
inline constexpr const char *Paper = "paper";
// The keys that can be set, in the order the document starts observing them.
QStringList observedKeys();
// Keys whose change changes every derived figure.
bool affectsDerivedValues(const QString &key);
}

// Why a holding shows no value, for the window and the command line to put in their own words.
// Valued also covers a holding without issue date, which has no month to look up.
enum class HoldingStatus {
    Valued,
    NotYetRedeemable,
    NoPricingData,     // the database lacks the month; a newer update may bring it
    BeforeSeriesBegan, // issued before its series was first sold: no value can ever exist
    AfterSeriesEnded,  // issued after its series was last sold
    NotIssuedYet,      // valued as of a month before its issue month
};
// The statuses of a holding shown at $0.00 in red, whose value no total can include.
constexpr bool lacksPricingData(HoldingStatus status)
{
    return status == HoldingStatus::NoPricingData || status == HoldingStatus::BeforeSeriesBegan
        || status == HoldingStatus::AfterSeriesEnded || status == HoldingStatus::NotIssuedYet;
}

class Holding : public QObject
{
    Q_OBJECT
public:
    static constexpr const char *IssueDateErrorDomain = "HoldingIssueDate";
    static constexpr const char *NoIssueDataMessage =
        "No pricing data available for bonds with that issue date. Do you need to update your bond values?";

    // The defaults of a new holding: default series, quantity 1, face value 0, no issue date,
    // paper as the user's "defaultBuysPaper" setting says (true when unset).
    Holding();
    ~Holding() override;
    static HoldingRef create() { return std::make_shared<Holding>(); }

    // Never null: an empty series field reads as the EE series.
    const Series *series() const;
    void setSeries(const Series *series);
    qint32 quantity() const { return m_quantity; }
    void setQuantity(qint32 quantity);
    // A damaged file, or another program, may carry a quantity below 1. Such a holding counts as
    // no bonds in every figure and total (so none goes negative); the window and the command line
    // mark it.
    bool hasQuantityBelowOne() const { return m_quantity < 1; }
    qint64 countedQuantity() const { return m_quantity < 1 ? 0 : m_quantity; }
    Pennies faceValue() const { return m_faceValue; }
    void setFaceValue(Pennies faceValue);
    QDateTime issueDate() const { return m_issueDate; } // invalid: none
    void setIssueDate(const QDateTime &issueDate);
    QString serialNumber() const { return m_serialNumber; } // null: none
    void setSerialNumber(const QString &serialNumber);
    bool isPaper() const { return m_isPaper; }
    void setPaper(bool paper);

    // At most one of co-owner and beneficiary; the owner is never also in another role.
    // The role set last wins.
    PersonRef owner() const { return m_owner; }
    void setOwner(const PersonRef &person);
    PersonRef coOwner() const { return m_coOwner; }
    void setCoOwner(const PersonRef &person);
    PersonRef beneficiary() const { return m_beneficiary; }
    void setBeneficiary(const PersonRef &person);
    // Clears every role held by this very object.
    void deleteTitleHolder(const Person *person);

    BondPortfolio *portfolio() const;
    // Attaches the holding and swaps its people for the portfolio's own equal objects. An owner
    // the portfolio does not list joins its title holders and leaves this holding's owner role.
    void setPortfolio(BondPortfolio *portfolio);

    // Accepts a proposed issue date only when the database has values for it in this series.
    bool validateIssueDate(const QDateTime &proposed, ValidationError *error = nullptr) const;

    // "Owner OR Co-owner", "Owner POD Beneficiary", "Owner", or a null string without owner.
    QString registration() const;

    // Generic access by key (the names above), as undo and table code use it.
    // Series travel as const Series * (or their code), people as PersonRef, dates as QDateTime.
    QVariant valueForKey(const QString &key) const;
    bool setValueForKey(const QString &key, const QVariant &value);

    // --- Valuation, as of the portfolio's valuation date ---
    qint8 pricingCorrectionFactor() const;
    Pennies issuePrice() const;        // one bond
    Pennies value() const;             // all bonds of the holding
    Pennies interestEarned() const;    // all bonds of the holding, never negative
    float currentYield() const;        // percent per year
    float compoundAnnualGrowthRate() const;
    bool isValidIssue() const;         // false when the database has no value
    bool isRedeemableIssue() const;    // false for a bond that cannot be cashed yet
    HoldingStatus status() const;
    qint32 monthsHeld() const;
    Pennies absoluteValueAsOfDate(const QDateTime &date) const; // one bond, markers as 0
    Pennies cumulativeInterestEarnedAsOfDate(const QDateTime &date) const;
    // The same with months as counts (MonthIndex).
    Pennies absoluteValueAsOfMonth(int month) const;
    Pennies cumulativeInterestEarnedAsOfMonth(int month) const;
    // Adds the cumulative interest as of December of each year from fromYear to toYear into
    // sums[year - fromYear]; nothing for a holding without issue date.
    void addCumulativeInterestByDecember(int fromYear, int toYear, Pennies *sums) const;
    int issueMonth() const; // MonthIndex::None without issue date
    QStringList valuesSinceIssue() const;
    // The same lines appended as bytes.
    void appendValuesSinceIssue(QByteArray &out) const;
    // True when the value shown as of the valuation date was computed by the program rather than
    // published by the Treasury (see derivedValueNote()).
    bool isValueDerived() const;
    // What such a value is, in words.
    static QString derivedValueNote();

    // Security symbol of the price history: issue month, issue year, series code ("031995N").
    QString security() const;
    // What the assessor needs to look this holding up.
    BondTerms bondTerms() const;

signals:
    void valueChanged(const QString &key, const QVariant &oldValue);
    void derivedValuesChanged();
    void changesCompleted();

private:
    class ChangeScope;
    friend class ChangeScope;
    void announce(const char *key, const QVariant &oldValue);
    qint64 rawValueAsOfValuationDate() const;
    qint64 rawValueAsOfMonth(int month) const;
    const BondAssessor *assessor() const;
    int valuationMonth() const;

    const Series *m_series = nullptr;
    qint32 m_quantity = 1;
    Pennies m_faceValue = 0;
    QDateTime m_issueDate;
    QPointer<BondPortfolio> m_portfolio;
    PersonRef m_owner;
    PersonRef m_coOwner;
    PersonRef m_beneficiary;
    QString m_serialNumber;
    bool m_isPaper = true;

    int m_changeDepth = 0;
    bool m_changedInScope = false;
};

Q_DECLARE_METATYPE(const Series *)
Q_DECLARE_METATYPE(HoldingRef)
