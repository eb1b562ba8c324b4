// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// One line of a portfolio: a number of identical bonds of one series, face value and issue
// month, with their serial number, the people named on them and whether they were bought on
// paper. Plain data that knows no portfolio: its figures are computed by HoldingFigures from
// facts() and a valuation context.
//
// Each change is announced with valueChanged(property, old value); a setter given the value the
// holding already has announces nothing, so that nothing is recorded. A change of series, paper,
// issue date, quantity or face value also announces derivedValuesChanged(): every figure may
// differ. A setter that changes further properties
// itself (the role rules) ends with one changesCompleted(), so that observers can group them.
#include "base/Money.h"
#include "model/Person.h"
#include "base/Series.h"
#include "base/ValidationError.h"
#include "valuation/BondFacts.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <memory>

class BondAssessor;
class Holding;
using HoldingRef = std::shared_ptr<Holding>;

// What a holding announces and what undo sets back, property by property.
enum class HoldingProperty {
    Series, Quantity, Paper, IssueDate, FaceValue, SerialNumber, Owner, CoOwner, Beneficiary,
    RedemptionMonth, AmountReceived, // only of bonds cashed and kept in the portfolio's redeemed list
};

// The properties' keys in portfolio files.
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
// Only on redeemed bonds, which are kept apart under their own top-level key.
inline constexpr const char *RedemptionMonth = "redemptionDate";
inline constexpr const char *AmountReceived = "amountReceived";
// The key of a property.
const char *of(HoldingProperty property);
// Properties whose change changes every derived figure.
bool affectsDerivedValues(HoldingProperty property);
}

class Holding : public QObject
{
    Q_OBJECT
public:
    static constexpr const char *IssueDateErrorDomain = "HoldingIssueDate";
    static constexpr const char *NoIssueDataMessage = QT_TRANSLATE_NOOP("Holding",
        "No pricing data available for bonds with that issue date. Do you need to update your bond values?");

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
    // no bonds in every figure and total (see BondFacts); the window and the command line mark it.
    bool hasQuantityBelowOne() const { return m_quantity < 1; }
    qint64 countedQuantity() const { return facts().countedQuantity(); }
    Pennies faceValue() const { return m_faceValue; }
    void setFaceValue(Pennies faceValue);
    Month issueDate() const { return m_issueDate; } // null: none
    void setIssueDate(Month issueDate);
    QString serialNumber() const { return m_serialNumber; } // null: none
    void setSerialNumber(const QString &serialNumber);
    bool isPaper() const { return m_isPaper; }
    void setPaper(bool paper);

    // A redeemed holding: the month its bonds were cashed and what was received for all of them.
    // Null and 0 for a held one.
    Month redemptionMonth() const { return m_redemptionMonth; }
    void setRedemptionMonth(Month month);
    Pennies amountReceived() const { return m_amountReceived; }
    void setAmountReceived(Pennies amount);
    bool isRedeemed() const { return !m_redemptionMonth.isNull(); }
    // What was received less what the bonds cost: the interest reportable at redemption.
    Pennies redemptionInterest() const { return m_amountReceived - issuePrice() * countedQuantity(); }

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

    // Accepts a proposed issue month only when the database has values for it in this series.
    bool validateIssueDate(Month proposed, const BondAssessor &database, ValidationError *error = nullptr) const;

    // "Owner OR Co-owner", "Owner POD Beneficiary", "Owner", or a null string without owner.
    QString registration() const;

    // Generic access by key (the names above), as undo and table code use it.
    // Series travel as const Series * (or their code), people as PersonRef, issue months as Month.
    QVariant value(HoldingProperty property) const;
    void setValue(HoldingProperty property, const QVariant &value);

    // What valuation needs to compute this holding's figures.
    BondFacts facts() const { return {series(), m_issueDate, m_faceValue, m_isPaper, m_quantity}; }
    // Issue price of one bond.
    Pennies issuePrice() const { return facts().issuePrice(); }
    // Security symbol of the price history: issue month, issue year, series code ("031995N").
    QString security() const { return facts().security(); }

signals:
    void valueChanged(HoldingProperty property, const QVariant &oldValue);
    void derivedValuesChanged();
    void changesCompleted();

private:
    class ChangeScope;
    friend class ChangeScope;
    void announce(HoldingProperty property, const QVariant &oldValue);

    const Series *m_series = nullptr;
    qint32 m_quantity = 1;
    Pennies m_faceValue = 0;
    Month m_issueDate;
    PersonRef m_owner;
    PersonRef m_coOwner;
    PersonRef m_beneficiary;
    QString m_serialNumber;
    bool m_isPaper = true;
    Month m_redemptionMonth;
    Pennies m_amountReceived = 0;

    int m_changeDepth = 0;
    bool m_changedInScope = false;
};

Q_DECLARE_METATYPE(const Series *)
Q_DECLARE_METATYPE(HoldingRef)
Q_DECLARE_METATYPE(Month)
Q_DECLARE_METATYPE(HoldingProperty)
