#include "expr/evaluator.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <string>

#include "base/encoding.h"
#include "expr/program.h"
#include "random_expression.h"
#include "run_rule_oracle.h"

namespace kalvex {
namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

/// Whether two values have the same bits; all not-a-numbers count as equal.
bool SameDouble(double a, double b) {
    return (std::isnan(a) && std::isnan(b)) || std::memcmp(&a, &b, sizeof a) == 0;
}

struct Point {
    double value = 0.0;
    std::int32_t code = 0;
};

Point Evaluate(std::u16string_view text, double x = 0.0, double y = 0.0) {
    const CompiledExpression expression = CompileExpression(text);
    EvalError = 0;
    const double value = EvaluateExpression(expression, x, y);
    return {value, EvalError};
}

TEST(EvaluateExpression, FollowsTheRunRule) {
    const struct {
        std::u16string_view text;
        double value;
    } rows[] =
        {
            {u"2-3-4", -5},    {u"8/4/2", 1},      {u"2^3^2", 64},
            {u"2-3*4-5", -15},  // 2-(12+5): the run goes on behind a tighter one
            {u"2-(3)-4", -5},  {u"8/abs(4)/2", 1}, {u"2+3*4", 14},
            {u"2*3+4", 10},    {u"10-4+3", 9},     {u"10+4-3", 11},
            {u"12/3*2", 8},    {u"2*12/3", 8},     {u"2*3^2", 18},
            {u"(2+3)*4", 20},  {u"((7))", 7},      {u"1.5+.5", 2},
            {u"1.2.3", 1.2},   {u"3+ 5", 8},       {u".0", 0},
            {u"3+ 0", 3},
        };
    for (const auto& row : rows) {
        const Point point = Evaluate(row.text);
        EXPECT_EQ(point.value, row.value) << ToUtf8(row.text);
        EXPECT_EQ(point.code, 0) << ToUtf8(row.text);
    }
    EXPECT_EQ(Evaluate(u"0-x^2", 3).value, -9);
}

TEST(EvaluateExpression, GroupsTheRestOfARunToTheLastBit) {
    const double x = 1e16;
    EXPECT_EQ(Evaluate(u"x-1-1", x).value, x - (1.0 + 1.0));  // (x-1)-1 would be x
    EXPECT_NE(Evaluate(u"x-1-1", x).value, (x - 1.0) - 1.0);
    EXPECT_EQ(Evaluate(u"x/0.1/3", 1).value, 1.0 / (0.1 * 3.0));
    EXPECT_EQ(Evaluate(u"x+0.1+0.2", 0.3).value, 0.3 + (0.1 + 0.2));
    EXPECT_EQ(Evaluate(u"x*0.1*3", 0.7).value, 0.7 * (0.1 * 3.0));
}

TEST(EvaluateExpression, AgreesWithTheSlowModelBitForBit) {
    testing_support::Generator generator(20260101);
    for (int i = 0; i < 4000; ++i) {
        const std::string text = testing_support::RandomArithmetic(generator, 3, true);
        const CompiledExpression expression = CompileExpression(Widen(text));
        for (const double x : {-2.5, 0.0, 0.5, 3.0}) {
            const oracle::Value expected = oracle::Evaluate(text, x, 1.75);
            EvalError = 0;
            const double value = EvaluateExpression(expression, x, 1.75);
            ASSERT_EQ(EvalError, expected.code) << text << " at " << x;
            if (expected.code == 0) {
                ASSERT_TRUE(SameDouble(value, expected.value))
                    << text << " at " << x << ": " << value << " against " << expected.value;
            }
        }
    }
}

struct DomainCase {
    std::u16string_view text;
    std::int32_t code;
};

const DomainCase kDomains[] = {
    {u"1/0", 1},
    {u"0/0", 1},
    {u"(0-8)^(1/3)", 2},
    {u"(0-8)^3", 0},
    {u"(0-8)^0.5", 2},
    {u"0^0.5", 0},
    {u"ln(0)", 3},
    {u"ln(0-1)", 3},
    {u"lg(0)", 4},
    {u"acos(1)", 0},
    {u"acos(1.0000001)", 5},
    {u"acos(0-1)", 0},
    {u"asin(0-1.5)", 6},
    {u"asin(1)", 0},
    {u"Ci(0)", 7},
    {u"Chi(0)", 8},
    {u"Psi(0)", 9},
    {u"Psi(0-2)", 9},
    {u"Psi(0-2.5)", 0},
    {u"Ei(0)", 10},
    {u"Ei(0-1)", 10},
    {u"Ei(1)", 0},
    {u"Li(0.5)", 10},
    {u"Li(1)", 10},
    {u"Li(0)", 3},
    {u"Li(0-1)", 3},
    {u"Li(2)", 0},
    {u"Beta(0,1)", 11},
    {u"Beta(1,0)", 11},
    {u"Beta(0-0.5,1)", 11},
    {u"Beta(1,0-0.5)", 11},
    {u"Beta(2,3)", 0},
    {u"J(0.5,0-1)", 12},
    {u"J(1,0-1)", 0},
    {u"J(0,2)", 0},
    {u"Y(0,0)", 13},
    {u"Y(1,0-1)", 13},
    {u"Y(1,1)", 0},
    {u"K(1,0)", 14},
    {u"K(0-1,1)", 14},
    {u"K(1,1)", 0},
    {u"I(0-1,1)", 15},
    {u"I(1,0)", 15},
    {u"I(1,1)", 0},
    {u"Hyper(1,1,1,1)", 16},
    {u"Hyper(1,1,1,0-1)", 16},
    {u"log(1,5)", 17},
    {u"log(0,5)", 17},
    {u"log(2,0)", 17},
    {u"log(0-2,5)", 17},
    {u"log(2,8)", 0},
    {u"Cheb(3,2,0)", 18},
    {u"Cheb(1,1.5,0)", 18},
    {u"Cheb(1,2,1)", 0},
    {u"Cheb(2,2,0-1)", 0},
    {u"Cheb(1,2,1.01)", 18},
    {u"Hi(1.5,1)", 19},
    {u"Hi(0,1)", 0},
    {u"Hi(0-1,1)", 19},
    {u"Lag(0,1)", 0},
    {u"Lag(1.5,1)", 20},
    {u"Lag(0-1,1)", 20},
    {u"Leg(0,1)", 21},
    {u"Leg(2,1)", 0},
    {u"Leg(1.5,0)", 21},
    {u"Leg(2,1.01)", 21},
    {u"Leg(2,0-1)", 0},
    {u"tg(1.5707963267948966)", 0},
};

TEST(EvaluateExpression, TestsTheDomainOfEveryPrimitive) {
    for (const DomainCase& row : kDomains) {
        EXPECT_EQ(Evaluate(row.text).code, row.code) << ToUtf8(row.text);
    }
}

TEST(EvaluateExpression, ComputesEveryFunction) {
    const struct {
        std::u16string_view text;
        double value;
    } rows[] = {
        {u"sin(1)", 0.8414709848078965},
        {u"cos(1)", 0.5403023058681398},
        {u"tg(1)", 1.5574077246549023},
        {u"ln(2)", 0.6931471805599453},
        {u"lg(2)", 0.3010299956639812},
        {u"sh(1)", 1.1752011936438014},
        {u"ch(1)", 1.543080634815244},
        {u"th(1)", 0.7615941559557649},
        {u"exp(1)", 2.718281828459045},
        {u"acos(0.5)", 1.0471975511965979},
        {u"asin(0.5)", 0.5235987755982989},
        {u"atg(1)", 0.7853981633974483},
        {u"int(0-1.5)", -2},
        {u"frac(0-1.5)", 0.5},
        {u"abs(0-1.5)", 1.5},
        {u"Gamma(5)", 24},
        {u"Si(1)", 0.946083070367183},
        {u"Ci(1)", 0.337403922900968},
        {u"Shi(1)", 1.057250875375729},
        {u"Chi(1)", 0.837866940980208},
        {u"Psi(1)", -0.577215664901533},
        {u"DawsonF(1)", 0.538079506912768},
        {u"Ei(1)", 1.895117816355937},
        {u"Sf(1)", 0.438259147390355},
        {u"Cf(1)", 0.779893400376823},
        {u"Ai(1)", 0.135292416312881},
        {u"Bi(1)", 1.207423594952871},
        {u"erf(1)", 0.842700792949715},
        {u"Li(2)", 1.045163780117493},
        {u"Beta(2,3)", 1.0 / 12.0},
        {u"J(0,1)", 0.765197686557967},
        {u"Y(0,1)", 0.088256964215677},
        {u"K(0,1)", 0.421024438240708},
        {u"I(0,1)", 1.266065877752008},
        {u"log(2,8)", 3},
        {u"Cheb(1,3,0.5)", -1},
        {u"Cheb(2,3,0.5)", -1},
        {u"Hi(3,2)", 40},
        {u"Lag(2,1)", -0.5},
        {u"Leg(2,0.5)", -0.125},
    };
    for (const auto& row : rows) {
        const Point point = Evaluate(row.text);
        EXPECT_EQ(point.code, 0) << ToUtf8(row.text);
        EXPECT_NEAR(point.value, row.value, 2e-14 * std::fabs(row.value)) << ToUtf8(row.text);
    }
}

TEST(EvaluateExpression, PassesArgumentsInWrittenOrder) {
    EXPECT_EQ(Evaluate(u"log(10,1000)").code, 0);
    EXPECT_NEAR(Evaluate(u"log(10,1000)").value, 3, 1e-14);
    EXPECT_EQ(Evaluate(u"Hi(2,3)").value, 34);  // 4*9-2; the other way round 8*8-12*2
    EXPECT_EQ(Evaluate(u"Hyper(1,2,3,2)").code, 16);
    // 2F1(1,2;3;x) = 2 (-ln(1-x) - x) / x^2; with 1 and 3 exchanged it would be near 10.
    EXPECT_NEAR(Evaluate(u"Hyper(1,2,3,0.5)").value, 1.5451774444795625, 1e-15);
    EXPECT_NEAR(Evaluate(u"Hyper(2,1,3,0.5)").value, 1.5451774444795625, 1e-15);
}

TEST(EvaluateExpression, KeepsTheCodeOfTheFirstFailure) {
    const DomainCase rows[] = {
        {u"1/0+ln(0)", 1},
        {u"ln(0)+1/0", 3},
        {u"ln(0)/0", 3},
        {u"1/(ln(0))", 3},
        {u"(1/0)/(ln(0))", 1},
        {u"log(1/0,ln(0))", 1},
        {u"log(ln(0),1/0)", 3},
        {u"sin(1/0)+acos(2)", 1},
        {u"x+x*x*(x+1/0)+ln(0)", 1},
        {u"acos(2)-asin(2)-ln(0)", 5},
        {u"ln(Ei(0))", 10},
        {u"Beta(ln(0),0)", 3},
    };
    for (const DomainCase& row : rows) {
        EXPECT_EQ(Evaluate(row.text).code, row.code) << ToUtf8(row.text);
    }
}

TEST(EvaluateExpression, LeavesAnEarlierErrorAlone) {
    const CompiledExpression expression = CompileExpression(u"1/x");
    EvalError = 17;
    static_cast<void>(EvaluateExpression(expression, 0.0));
    EXPECT_EQ(EvalError, 17);
    EvalError = 0;
}

TEST(EvaluateExpression, TakesMalformedTextsAsNotANumber) {
    const std::u16string rows[] = {
        u"",
        u"x+",
        u"x.5",
        u"()",
        u"x()",
        u"2.(x)",
        u"(x) 5",
        u"sin",
        u"sin(",
        u"sin()",
        u"sin(1,2)",
        u"Beta(1)",
        u"1,2",
        u"x,y",
        u"1,Beta(2)",
        u"+",
        u"(((",
        u")))",
        u"\u0431",
        u"x x",
        u"foo(1)",
        std::u16string(100000, u'('),
        std::u16string(100000, u'-'),
        std::u16string(3, u'\0'),
    };
    for (const std::u16string& text : rows) {
        const Point point = Evaluate(text, 1.0);
        EXPECT_TRUE(std::isnan(point.value)) << ToUtf8(text).substr(0, 40);
        EXPECT_EQ(point.code, 0);
    }
    std::u16string nested = std::u16string(50000, u'(') + u"x" + std::u16string(50000, u')');
    EXPECT_TRUE(std::isnan(Evaluate(nested, 1.0).value));
    std::u16string sum = u"x";
    for (int i = 0; i < 50000; ++i)
        sum += u"+x";
    EXPECT_TRUE(std::isnan(Evaluate(sum, 1.0).value));
}

TEST(EvaluateExpression, TakesTheLongestCheckedTexts) {
    std::u16string sum = u"1/x";
    for (int i = 0; i < 62; ++i)
        sum += u"+1/x";
    EXPECT_DOUBLE_EQ(Evaluate(sum, 2.0).value, 31.5);
    std::u16string nested = std::u16string(126, u'(') + u"x" + std::u16string(126, u')');
    EXPECT_EQ(Evaluate(nested, 2.0).value, 2.0);
    const std::u16string digits(100000, u'9');
    EXPECT_EQ(Evaluate(digits).value, std::numeric_limits<double>::infinity());
}

TEST(Power, DependsOnTheValueOfTheExponentOnly) {
    const struct {
        std::u16string_view constant;
        std::u16string_view computed;
    } rows[] = {{u"x^2", u"x^(y+1)"},     {u"x^3", u"x^(y+2)"},       {u"x^0.5", u"x^(y/2)"},
                {u"x^(0-1)", u"x^(0-y)"}, {u"x^7", u"x^(y*7)"},       {u"x^(0-5)", u"x^(0-5*y)"},
                {u"x^1.7", u"x^(y*1.7)"}, {u"x^1024", u"x^(y*1024)"}, {u"x^0", u"x^(y-1)"},
                {u"x^1", u"x^y"},         {u"x^1025", u"x^(y*1025)"}};
    for (const auto& row : rows) {
        for (const double x : {0.0, -0.0, 0.7, -0.7, 1.3, -1.3, 1e-200, 1e200, -1e200, 3e-310,
                               std::numeric_limits<double>::infinity()}) {
            const Point a = Evaluate(row.constant, x, 1.0);
            const Point b = Evaluate(row.computed, x, 1.0);
            EXPECT_EQ(a.code, b.code) << ToUtf8(row.constant) << " at " << x;
            EXPECT_TRUE(SameDouble(a.value, b.value) || a.code != 0)
                << ToUtf8(row.constant) << " at " << x << ": " << a.value << ", " << b.value;
        }
    }
}

TEST(Power, IsRoundedWellForIntegralExponents) {
    testing_support::Generator generator(7);
    std::uniform_real_distribution<double> bases(-3.0, 3.0);
    for (const int n : {-20, -7, -3, -2, -1, 0, 1, 2, 3, 4, 5, 7, 19, 60}) {
        const std::u16string text =
            n < 0 ? u"x^(0-" + Widen(std::to_string(-n)) + u")" : u"x^" + Widen(std::to_string(n));
        const CompiledExpression expression = CompileExpression(text);
        for (int i = 0; i < 500; ++i) {
            const double x = bases(generator);
            // The format of the x87 has 64 bits: its error is far below one unit of a double.
            long double exact = 1.0L;
            for (int k = 0; k < std::abs(n); ++k)
                exact *= x;
            if (n < 0) exact = 1.0L / exact;
            const double value = EvaluateExpression(expression, x);
            const double ulp =
                std::nextafter(std::fabs(value), std::numeric_limits<double>::infinity()) -
                std::fabs(value);
            EXPECT_LE(std::fabs(static_cast<double>(value - exact)), 0.54 * ulp) << x << " ^ " << n;
        }
    }
}

// Bases whose powers lie inside the range of a double, just outside and far outside.
TEST(Power, KeepsItsSenseAtTheEndsOfTheRange) {
    for (const int n : {-100, -21, -20, -7, -3, -2, -1, 2, 3, 4, 5, 7, 8, 16, 20, 21, 60, 1024}) {
        const std::u16string text =
            n < 0 ? u"x^(0-" + Widen(std::to_string(-n)) + u")" : u"x^" + Widen(std::to_string(n));
        const CompiledExpression expression = CompileExpression(text);
        for (const double exponent : {-3000.0, -1500.0, -1080.0, -1060.0, -1010.0, -910.0, 890.0,
                                      910.0, 1010.0, 1030.0, 1080.0, 1500.0, 3000.0}) {
            const double magnitude = std::exp2(exponent / n) * 1.0000001;
            for (const double x : {magnitude, -magnitude}) {
                const double exact = std::pow(x, n);
                const double value = EvaluateExpression(expression, x);
                const double unit = 2.0 * std::numeric_limits<double>::denorm_min();
                const double bound = std::isinf(exact) ? 0.0 : std::fabs(exact) * 3e-16 + unit;
                EXPECT_TRUE(value == exact || std::fabs(value - exact) <= bound)
                    << x << " ^ " << n << " = " << value << ", not " << exact;
                EXPECT_EQ(std::signbit(value), std::signbit(exact)) << x << " ^ " << n;
            }
        }
    }
}

TEST(Hyperbolic, GoOnUntilTheirOwnOverflow) {
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double x : {709.5, 709.8, 710.4, 710.47}) {
        EXPECT_NEAR(Evaluate(u"sh(x)", x).value, std::sinh(x), 1e-12 * std::sinh(x));
        EXPECT_NEAR(Evaluate(u"ch(x)", -x).value, std::cosh(x), 1e-12 * std::cosh(x));
        EXPECT_EQ(Evaluate(u"sh(x)", -x).value, -Evaluate(u"sh(x)", x).value);
    }
    EXPECT_EQ(Evaluate(u"sh(x)", -710.5).value, -infinity);
    EXPECT_EQ(Evaluate(u"ch(x)", 710.5).value, infinity);
    EXPECT_EQ(Evaluate(u"sh(x)", infinity).value, infinity);
    EXPECT_TRUE(std::isnan(Evaluate(u"sh(x)", kNan).value));
}

TEST(MergedOperations, RoundLikeTheirParts) {
    const auto power = [](double x, int n) {
        return EvaluateExpression(CompileExpression(u"x^y"), x, n);
    };
    const struct {
        std::u16string_view text;
        double (*expected)(double x, double cube, double fifth);
    } rows[] = {
        {u"x^3-3*x+1", [](double x, double c, double) { return (c - 3 * x) + 1; }},
        {u"x^3-3*x-1", [](double x, double c, double) { return c - (3 * x + 1); }},
        {u"1+x*x-0.1", [](double x, double, double) { return 1 + (x * x - 0.1); }},
        {u"0.1+(x*x-0.3)", [](double x, double, double) { return 0.1 + (x * x - 0.3); }},
        {u"(x-0.1*x)+0.7", [](double x, double, double) { return (x - 0.1 * x) + 0.7; }},
        {u"(0.1*x+x)-0.7", [](double x, double, double) { return (0.1 * x + x) - 0.7; }},
        {u"0.7-(0.1*x+x)", [](double x, double, double) { return 0.7 - (0.1 * x + x); }},
        {u"0.3*x^3+x", [](double x, double c, double) { return 0.3 * c + x; }},
        {u"x+0.3*x^3", [](double x, double c, double) { return x + 0.3 * c; }},
        {u"x-0.3*x^3", [](double x, double c, double) { return x - 0.3 * c; }},
        {u"0.3*x^3-x", [](double x, double c, double) { return 0.3 * c - x; }},
        {u"x^3*0.3+x", [](double x, double c, double) { return c * 0.3 + x; }},
        {u"x^3+x", [](double x, double c, double) { return c + x; }},
        {u"x+x^3", [](double x, double c, double) { return x + c; }},
        {u"x^3-x", [](double x, double c, double) { return c - x; }},
        {u"x-x^3", [](double x, double c, double) { return x - c; }},
        {u"x^3+x^3", [](double, double c, double) { return c + c; }},
        {u"x^3*x+x^5", [](double x, double c, double f) { return c * x + f; }},
        {u"0.1*x^5+0.3*x^3+0.7*x",
         [](double x, double c, double f) { return 0.1 * f + (0.3 * c + 0.7 * x); }},
        {u"x^3+5", [](double, double c, double) { return c + 5; }},
        {u"2*x^3-7", [](double, double c, double) { return 2 * c - 7; }},
        {u"x*x^3+x^3", [](double x, double c, double) { return x * c + c; }},
    };
    for (const auto& row : rows) {
        const CompiledExpression expression = CompileExpression(row.text);
        for (int i = -50; i <= 50; ++i) {
            const double x = 0.37 * i;
            const double expected = row.expected(x, power(x, 3), power(x, 5));
            ASSERT_TRUE(SameDouble(EvaluateExpression(expression, x), expected))
                << ToUtf8(row.text) << " at " << x;
        }
    }
}

TEST(EvaluateAt, StoresTheMarkerAndTheCode) {
    const double xs[] = {-1.0, 0.0, 1.0};
    const auto results = EvaluateAt(CompileExpression(u"1/x"), xs);
    ASSERT_EQ(results.size(), 3u);
    EXPECT_EQ(results[0].value, -1.0);
    EXPECT_EQ(results[1].value, UndefinedValue);
    EXPECT_EQ(results[1].error, 1);
    EXPECT_EQ(results[2].value, 1.0);
    EXPECT_EQ(results[2].error, 0);
    EXPECT_TRUE(EvaluateAt(CompileExpression(u"x"), {}).empty());
}

TEST(EvaluateAt, AgreesWithOnePointForEveryLength) {
    testing_support::Generator generator(99);
    for (int i = 0; i < 300; ++i) {
        const std::u16string text = Widen(testing_support::RandomExpression(generator, 3, false));
        const CompiledExpression expression = CompileExpression(text);
        const std::size_t count = 1 + testing_support::Below(generator, 600);
        std::vector<double> xs(count);
        for (std::size_t k = 0; k < count; ++k)
            xs[k] = -3.0 + 0.01 * static_cast<double>(k);
        const auto results = EvaluateAt(expression, xs);
        for (std::size_t k = 0; k < count; ++k) {
            EvalError = 0;
            const double value = EvaluateExpression(expression, xs[k]);
            ASSERT_EQ(results[k].error, EvalError) << ToUtf8(text) << " at " << xs[k];
            ASSERT_TRUE(SameDouble(results[k].value, EvalError != 0 ? UndefinedValue : value))
                << ToUtf8(text) << " at " << xs[k];
        }
    }
}

TEST(EvaluateInto, WritesNoFurtherThanItsCount) {
    const CompiledExpression expression = CompileExpression(u"1/x+sin(x)");
    for (std::size_t count = 1; count < 20; ++count) {
        const std::vector<double> xs(count, 0.0);
        std::vector<double> values(count + 1, 7.0);
        std::vector<std::int32_t> errors(count + 1, 7);
        EvaluateInto(expression, xs, 0.0, {values.data(), count}, {errors.data(), count});
        EXPECT_EQ(values[count], 7.0);
        EXPECT_EQ(errors[count], 7);
        EXPECT_EQ(values[count - 1], UndefinedValue);
        EXPECT_EQ(errors[count - 1], 1);
    }
}

TEST(CompiledExpression, IsNotANumberBeforeAndAfterItsLife) {
    CompiledExpression expression;
    EXPECT_TRUE(std::isnan(EvaluateExpression(expression, 1.0)));
    expression = CompileExpression(u"x");
    EXPECT_EQ(EvaluateExpression(expression, 4.0), 4.0);
    FreeExpression(expression);
    const double xs[] = {1.0, 2.0};
    const auto results = EvaluateAt(expression, xs);
    EXPECT_TRUE(std::isnan(results[1].value));
    EXPECT_EQ(results[1].error, 0);
}

TEST(CompiledExpression, IsNotDisturbedByAnother) {
    const CompiledExpression first = CompileExpression(u"x+1");
    const CompiledExpression second = CompileExpression(u"y*2");
    EXPECT_EQ(EvaluateExpression(first, 1.0, 5.0), 2.0);
    EXPECT_EQ(EvaluateExpression(second, 1.0, 5.0), 10.0);
    EXPECT_EQ(EvaluateExpression(first, 3.0, 5.0), 4.0);
}

TEST(EvaluateExpression, PassesInfinitiesAndNotANumberOn) {
    EXPECT_EQ(Evaluate(u"exp(1000)").value, std::numeric_limits<double>::infinity());
    EXPECT_EQ(Evaluate(u"exp(1000)").code, 0);
    EXPECT_TRUE(std::isnan(Evaluate(u"exp(1000)-exp(1000)").value));
    EXPECT_TRUE(std::isnan(Evaluate(u"ln(x)", kNan).value));
    EXPECT_EQ(Evaluate(u"ln(x)", kNan).code, 0);
    EXPECT_EQ(Evaluate(u"(0-1)^x", kNan).code, 2);
}

}  // namespace
}  // namespace kalvex
