#include "model/Money.h"

#include <QDate>
#include <gtest/gtest.h>
#include <limits>

namespace {

struct DollarEntry
{
    double dollars;
    Pennies pennies;
};

class DollarsToPennies : public testing::TestWithParam<DollarEntry> {};

TEST_P(DollarsToPennies, RoundsHalfUpTowardPositiveInfinity)
{
    const DollarEntry entry = GetParam();
    EXPECT_EQ(dollarsToPennies(entry.dollars), entry.pennies);
    EXPECT_EQ(DollarTransformer::reverseTransformedValue(entry.dollars).toLongLong(), entry.pennies);
}

INSTANTIATE_TEST_SUITE_P(TypedAmounts, DollarsToPennies,
                         testing::Values(DollarEntry{123.456, 12346}, DollarEntry{0.004, 0}, DollarEntry{0.005, 1},
                                         DollarEntry{0.125, 13}, DollarEntry{-0.125, -12}, DollarEntry{-0.126, -13},
                                         DollarEntry{25.0, 2500}, DollarEntry{0.0, 0}));

TEST(DollarTransformer, ForwardTakesTheWholePennyValueOfAnyNumber)
{
    EXPECT_DOUBLE_EQ(DollarTransformer::transformedValue(QVariant::fromValue<qint64>(12345)).toDouble(), 123.45);
    // A number holding 2.9 answers 2 as its penny value; text holding 2.9 is truncated the same way.
    EXPECT_DOUBLE_EQ(DollarTransformer::transformedValue(2.9).toDouble(), 0.02);
    EXPECT_DOUBLE_EQ(DollarTransformer::transformedValue(QStringLiteral("2.9")).toDouble(), 0.02);
    EXPECT_DOUBLE_EQ(DollarTransformer::transformedValue(-2.9).toDouble(), -0.02);
}

// Typed text is read as the number it begins with; whatever follows is ignored.
struct TypedText
{
    const char *text;
    Pennies pennies;
    friend std::ostream &operator<<(std::ostream &out, const TypedText &typed) { return out << '"' << typed.text << '"'; }
};

class TypedDollars : public testing::TestWithParam<TypedText> {};

TEST_P(TypedDollars, ReadTheLeadingNumberOnly)
{
    EXPECT_EQ(DollarTransformer::reverseTransformedValue(QString::fromUtf8(GetParam().text)).toLongLong(), GetParam().pennies);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, TypedDollars,
    testing::Values(TypedText{"123.456", 12346}, TypedText{"12.5x", 1250}, TypedText{"abc", 0}, TypedText{" 3e2", 30000},
                    TypedText{"", 0}, TypedText{"1,234", 100}, TypedText{"$5", 0}, TypedText{"\t\n-.5 dollars", -50},
                    TypedText{"+2.", 200}, TypedText{"7e", 700}, TypedText{"1e-2x", 1}, TypedText{"inf", 0},
                    TypedText{"nan", 0}, TypedText{"0x10", 0}, TypedText{"1e999", 0}, TypedText{"-", 0}, TypedText{".", 0},
                    TypedText{"1e300", std::numeric_limits<Pennies>::max()}));

TEST(DollarTransformer, NullStaysNull)
{
    EXPECT_TRUE(DollarTransformer::transformedValue(QVariant()).isNull());
    EXPECT_TRUE(DollarTransformer::reverseTransformedValue(QVariant()).isNull());
}

TEST(DollarTransformer, RefusesValuesThatAreNotNumbers)
{
    const QVariant date(QDate(2020, 1, 1));
    try {
        DollarTransformer::transformedValue(date);
        FAIL() << "a date was accepted";
    } catch (const DollarConversionError &error) {
        EXPECT_STREQ(error.what(), "Value (QDate) does not respond to -doubleValue.");
    }
    EXPECT_THROW(DollarTransformer::reverseTransformedValue(date), DollarConversionError);
}

TEST(Money, FormatsDollarsWithTwoDecimalsAndGrouping)
{
    EXPECT_EQ(formatDollars(123456), QStringLiteral("$1,234.56"));
    EXPECT_EQ(formatDollars(5), QStringLiteral("$0.05"));
    EXPECT_EQ(formatDollars(-25), QStringLiteral("-$0.25"));
}

} // namespace
