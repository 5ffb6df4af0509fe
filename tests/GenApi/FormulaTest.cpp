// The formula engine of SwissKnife and converter nodes: grammar, integer and
// float arithmetic, variables and errors.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "GenApi/Formula/Formula.h"

using GenApi_3_0::detail::CFormula;
using GenICam_3_0::InvalidArgumentException;
using GenICam_3_0::LogicalErrorException;

namespace {

const int64_t kMin = std::numeric_limits<int64_t>::min();
const int64_t kMax = std::numeric_limits<int64_t>::max();

// Evaluates a formula without variables; calling a value source is a fault.
int64_t Int(const std::string& text) {
  return CFormula(text, true).EvaluateInteger(nullptr, nullptr);
}
double Float(const std::string& text) {
  return CFormula(text, false).EvaluateFloat(nullptr, nullptr);
}

// The description of the InvalidArgumentException that parsing raises.
std::string ParseError(const std::string& text, bool integerMode) {
  try {
    CFormula f(text, integerMode);
  } catch (const InvalidArgumentException& e) {
    return e.GetDescription();
  }
  return "<parsed>";
}

struct SCase {
  const char* m_pText;
  int64_t m_nExpected;
};

}  // namespace

TEST(Formula, PrecedenceFollowsTheGenICamLevels) {
  const SCase cases[] = {
      {"1+2*3", 7},          {"(1+2)*3", 9},
      {"2*5%3", 1},          {"2*6/4", 3},            // * / % share a level, left to right
      {"2*3**2", 18},        {"-2**2", 4},            // unary binds tighter than **
      {"2**-1", 0},          {"1<<2+1", 8},           // + before <<
      {"1<<2<5", 1},         {"1<2=1", 1},            // << before <, < before =
      {"5&3=1", 0},          {"1|2^3&6", 1},          // = before &, & before ^ before |
      {"2|1&&0", 0},         {"1||0&&0", 1},          // | before &&, && before ||
      {"1||0?7:8", 7},       {"0?1:2+3", 5},          // ?: is loosest
      {"--3", 3},            {"+-+3", -3},
      {"-~0", 1},            {"~-1", 0},
      {" ( 1 +\t2 )\n* 3 ", 9},
  };
  for (const SCase& c : cases) EXPECT_EQ(Int(c.m_pText), c.m_nExpected) << c.m_pText;
}

TEST(Formula, AssociativityOfEachLevel) {
  const SCase cases[] = {
      {"10-4-3", 3},   {"100/10/5", 2},  {"100%7%3", 2},      {"2**3**2", 512},
      {"3>2>1", 0},    {"1<2<3", 1},     {"1=1=1", 1},        {"2=2<>1", 0},
      {"64>>2>>1", 8}, {"1<<2<<3", 32},
      {"1?1:0?2:3", 1}, {"0?1:0?2:3", 3}, {"1?0?4:5:6", 5},   {"0?4:1?5:6", 5},
  };
  for (const SCase& c : cases) EXPECT_EQ(Int(c.m_pText), c.m_nExpected) << c.m_pText;
}

TEST(Formula, ComparisonsAndLogicGiveOneOrZero) {
  const SCase cases[] = {
      {"1<>2", 1}, {"2<>2", 0}, {"1=2", 0}, {"3=3", 1}, {"2<=2", 1}, {"3<=2", 0},
      {"2>=3", 0}, {"2>=2", 1}, {"2>1", 1}, {"1<1", 0}, {"5&&7", 1}, {"5&&0", 0},
      {"0||9", 1}, {"0||0", 0}, {"-3&&-4", 1},
  };
  for (const SCase& c : cases) EXPECT_EQ(Int(c.m_pText), c.m_nExpected) << c.m_pText;
  EXPECT_EQ(Float("0.5&&0.25"), 1.0);
  EXPECT_EQ(Float("2.5>2"), 1.0);
  EXPECT_EQ(Float("0.5=0.5"), 1.0);
}

TEST(Formula, IntegerArithmeticWrapsAndTruncates) {
  const SCase cases[] = {
      {"9223372036854775807+1", kMin},  {"-9223372036854775808-1", kMax},
      {"-9223372036854775808", kMin},    {"0x7fffffffffffffff*2", -2},
      {"-9223372036854775808/-1", kMin}, {"-9223372036854775808%-1", 0},
      {"-(-9223372036854775808)", kMin},
      {"-7/2", -3},  {"7/-2", -3},  {"-7%2", -1},  {"7%-2", 1},
      {"6&3", 2},    {"6|3", 7},    {"6^3", 5},    {"~0", -1},
      {"1<<63", kMin}, {"1<<64", 0}, {"1<<-1", 0}, {"-8>>1", -4}, {"-1>>70", -1}, {"8>>64", 0},
      {"2**62", 4611686018427387904}, {"2**64", 0}, {"3**0", 1}, {"0**0", 1}, {"(-3)**3", -27},
      {"3**40", -6289078614652622815},  // 3**40 - 2**64
      {"2**-2", 0},  {"1**-5", 1},  {"(-1)**-3", -1}, {"(-1)**-4", 1},
      {"0x1F+0X10", 47}, {"0xFFFFFFFFFFFFFFFF", -1}, {"18446744073709551615", -1},
  };
  for (const SCase& c : cases) EXPECT_EQ(Int(c.m_pText), c.m_nExpected) << c.m_pText;
}

TEST(Formula, FloatArithmeticAndLiterals) {
  EXPECT_DOUBLE_EQ(Float("7/2"), 3.5);
  EXPECT_DOUBLE_EQ(Float("-7%2"), -1.0);
  EXPECT_DOUBLE_EQ(Float("7.5%2"), 1.5);
  EXPECT_DOUBLE_EQ(Float("2**0.5"), std::sqrt(2.0));
  EXPECT_DOUBLE_EQ(Float("2**-2"), 0.25);
  EXPECT_DOUBLE_EQ(Float("1.5e3 + .5"), 1500.5);
  EXPECT_DOUBLE_EQ(Float("2.5E-1*4"), 1.0);
  EXPECT_DOUBLE_EQ(Float("0x10/4"), 4.0);
  EXPECT_DOUBLE_EQ(Float("0xFFFFFFFFFFFFFFFF"), 18446744073709551615.0);
  EXPECT_DOUBLE_EQ(Float("1e300*1e300"), std::numeric_limits<double>::infinity());
}

TEST(Formula, FloatBitOperationsWorkOnTruncatedIntegers) {
  EXPECT_EQ(Float("5.9 & 3.2"), 1.0);
  EXPECT_EQ(Float("-1.5 | 0"), -1.0);
  EXPECT_EQ(Float("6.7 ^ 3.9"), 5.0);
  EXPECT_EQ(Float("~1.5"), -2.0);
  EXPECT_EQ(Float("1.9 << 2.9"), 4.0);
  EXPECT_EQ(Float("7.5 >> 1"), 3.0);
  EXPECT_EQ(Float("-8.5 >> 1"), -4.0);
}

TEST(Formula, FunctionsAndConstants) {
  const double pi = 3.14159265358979323846;
  EXPECT_DOUBLE_EQ(Float("PI"), pi);
  EXPECT_DOUBLE_EQ(Float("E"), std::exp(1.0));
  EXPECT_DOUBLE_EQ(Float("SIN(PI/2)"), 1.0);
  EXPECT_DOUBLE_EQ(Float("COS(0)"), 1.0);
  EXPECT_DOUBLE_EQ(Float("TAN(PI/4)"), std::tan(pi / 4));
  EXPECT_DOUBLE_EQ(Float("ASIN(1)*2"), pi);
  EXPECT_DOUBLE_EQ(Float("ACOS(-1)"), pi);
  EXPECT_DOUBLE_EQ(Float("ATAN(1)*4"), pi);
  EXPECT_DOUBLE_EQ(Float("EXP(1)"), std::exp(1.0));
  EXPECT_DOUBLE_EQ(Float("LN(E**3)"), 3.0);
  EXPECT_DOUBLE_EQ(Float("LG(1000)"), 3.0);
  EXPECT_DOUBLE_EQ(Float("SQRT(16)"), 4.0);
  EXPECT_DOUBLE_EQ(Float("ABS(-2.5)"), 2.5);
  EXPECT_EQ(Float("SGN(-3)"), -1.0);
  EXPECT_EQ(Float("SGN(0)"), 0.0);
  EXPECT_EQ(Float("SGN(0.1)"), 1.0);
  EXPECT_EQ(Float("NEG(2)"), -2.0);
  EXPECT_EQ(Float("NEG(-2)"), 2.0);
  EXPECT_EQ(Float("TRUNC(-2.7)"), -2.0);
  EXPECT_EQ(Float("FLOOR(-2.5)"), -3.0);
  EXPECT_EQ(Float("CEIL(-2.5)"), -2.0);
  EXPECT_EQ(Float("ROUND(2.5)"), 3.0);
  EXPECT_EQ(Float("ROUND(-2.5)"), -3.0);
  EXPECT_EQ(Float("ROUND(2.4999)"), 2.0);
  EXPECT_DOUBLE_EQ(Float("ROUND(3.14159, 2)"), 3.14);
  EXPECT_DOUBLE_EQ(Float("ROUND(1234.5, -2)"), 1200.0);
  EXPECT_DOUBLE_EQ(Float("ROUND(2.675, 1.9)"), 2.7);  // decimals are truncated to 1
  EXPECT_DOUBLE_EQ(Float("SQRT(ABS(-4)) + ROUND(SIN(0), 3)"), 2.0);
}

TEST(Formula, DoubleLiteralsInIntegerFormulasComputeLikeC) {
  // Integer converters of real devices are written as "TO / 4.0" or "0.1 * TO".
  auto var = [](int64_t v) { return [v](size_t) { return v; }; };
  const CFormula quarter(" TO / 4.0 ", true);
  EXPECT_EQ(quarter.GetVariableNames(), (std::vector<std::string>{"TO"}));
  EXPECT_EQ(quarter.EvaluateInteger(var(7), nullptr), 1);
  EXPECT_EQ(quarter.EvaluateInteger(var(-7), nullptr), -1);
  EXPECT_EQ(quarter.EvaluateFloat(var(7), nullptr), 1.75);
  EXPECT_EQ(CFormula("0.1 * TO", true).EvaluateInteger(var(100), nullptr), 10);

  // Only the operations that meet a double operand are done in double.
  EXPECT_EQ(CFormula("X / 4 + 0.5", true).EvaluateFloat(var(7), nullptr), 1.5);
  EXPECT_EQ(CFormula("X / 4.0 + 0.5", true).EvaluateFloat(var(7), nullptr), 2.25);
  EXPECT_EQ(CFormula("(X + 0.5) * 2", true).EvaluateInteger(var(3), nullptr), 7);
  EXPECT_EQ(CFormula("9223372036854775807 + 1 + 0.5", true).EvaluateFloat(nullptr, nullptr),
            -9223372036854775808.0 + 0.5);

  const SCase cases[] = {
      {"2.5 > 2", 1}, {"2 = 2.0", 1}, {"0.5 && 1", 1}, {"0.0 || 0", 0}, {"7.9 & 3", 3},
      {"~1.5", -2},   {"-1.5 * 2", -3}, {"1.5e1 + 1", 16}, {".5 ? 4 : 5", 4}, {"1 ? 2.7 : 5", 2},
      {"2 ** 0.5 * 100", 141}, {"7.5 % 2", 1}, {"1e30", kMax}, {"1 << 2.9", 4},
  };
  for (const SCase& c : cases) EXPECT_EQ(Int(c.m_pText), c.m_nExpected) << c.m_pText;
  EXPECT_THROW(Int("1 / 0.0"), LogicalErrorException);
  EXPECT_THROW(Int("1.5 % 0"), LogicalErrorException);
}

TEST(Formula, ConversionBetweenModes) {
  EXPECT_EQ(CFormula("2.7", false).EvaluateInteger(nullptr, nullptr), 2);
  EXPECT_EQ(CFormula("-2.7", false).EvaluateInteger(nullptr, nullptr), -2);
  EXPECT_EQ(CFormula("1e30", false).EvaluateInteger(nullptr, nullptr), kMax);
  EXPECT_EQ(CFormula("-1e30", false).EvaluateInteger(nullptr, nullptr), kMin);
  EXPECT_EQ(CFormula("7/2", true).EvaluateFloat(nullptr, nullptr), 3.0);
}

TEST(Formula, VariablesAreListedOnceInOrderOfFirstUse) {
  const CFormula f("Width.Max - Width + X_1*Width.Max + PI + SIN(y) + E", false);
  EXPECT_EQ(f.GetVariableNames(), (std::vector<std::string>{"Width.Max", "Width", "X_1", "y"}));

  // Integer formulas know no constants: PI and E are names there.
  EXPECT_EQ(CFormula("PI + E + VAR.Value", true).GetVariableNames(),
            (std::vector<std::string>{"PI", "E", "VAR.Value"}));
  EXPECT_TRUE(CFormula("0x10 + 3", true).GetVariableNames().empty());
}

TEST(Formula, VariablesComeFromTheSourceOfTheMode) {
  const std::vector<int64_t> ints{7, -3};
  const std::vector<double> floats{0.5, 4.0};
  auto intVar = [&](size_t i) { return ints.at(i); };
  auto floatVar = [&](size_t i) { return floats.at(i); };

  const CFormula integer("A*A + B.Min", true);
  EXPECT_EQ(integer.EvaluateInteger(intVar, nullptr), 46);
  EXPECT_EQ(integer.EvaluateFloat(intVar, nullptr), 46.0);

  const CFormula real("A*B.Min + A", false);
  EXPECT_EQ(real.EvaluateFloat(nullptr, floatVar), 2.5);
  EXPECT_EQ(real.EvaluateInteger(nullptr, floatVar), 2);
}

TEST(Formula, OnlyTheNeededOperandsAreEvaluated) {
  size_t calls = 0;
  int64_t x = 0;
  auto intVar = [&](size_t) { ++calls; return x; };
  const CFormula guarded("X = 0 ? 0 : 100 / X", true);
  EXPECT_EQ(guarded.EvaluateInteger(intVar, nullptr), 0);
  EXPECT_EQ(calls, 1u);
  x = 4;
  EXPECT_EQ(guarded.EvaluateInteger(intVar, nullptr), 25);

  EXPECT_EQ(Int("0 && 1/0"), 0);
  EXPECT_EQ(Int("1 || 1/0"), 1);
  EXPECT_EQ(Float("0 && 1/0"), 0.0);
  EXPECT_EQ(Float("1 ? 2 : 1/0"), 2.0);
}

TEST(Formula, DivisionOrModuloByZeroIsALogicalError) {
  for (const char* text : {"1/0", "1%0", "5/(3-3)", "0**-1"}) {
    EXPECT_THROW(Int(text), LogicalErrorException) << text;
  }
  for (const char* text : {"1/0", "1%0", "1/0.0", "2.5%(1-1)"}) {
    EXPECT_THROW(Float(text), LogicalErrorException) << text;
  }
  try {
    Int("7 / (X - X)");
    FAIL() << "no exception";
  } catch (...) {
    // X is asked for, and a null source cannot answer
  }
  try {
    CFormula("10 / Y", true).EvaluateInteger([](size_t) -> int64_t { return 0; }, nullptr);
    FAIL() << "no exception";
  } catch (const LogicalErrorException& e) {
    EXPECT_NE(std::string(e.GetDescription()).find("Division by zero in formula '10 / Y'"), std::string::npos)
        << e.GetDescription();
  }
}

TEST(Formula, SyntaxErrorsNameTheReasonAndPosition) {
  struct SErrorCase {
    const char* m_pText;
    bool m_bInteger;
    const char* m_pExpected;
  };
  const SErrorCase cases[] = {
      {"1 + * 2", true, "unexpected '*' at position 5 in formula '1 + * 2'"},
      {"(1+2", true, "unbalanced '(' at position 1"},
      {"1+2)", true, "unbalanced ')' at position 4"},
      {"", true, "empty formula at position 1"},
      {"   ", false, "empty formula"},
      {"1 2", true, "unexpected '2' at position 3"},
      {"a $ b", true, "unexpected character '$' at position 3"},
      {"1 == 2", true, "unexpected '=' at position 4"},
      {"1 ? 2", true, "missing ':' of '?' at position 6"},
      {"1 ? 2 , 3", true, "expected ':' instead of ','"},
      {"FOO(1)", false, "unknown function 'FOO' at position 1"},
      {"2 + sin(1)", false, "unknown function 'sin' at position 5"},
      {"X + SIN(1)", true, "function 'SIN' is not available in an integer formula at position 5"},
      {"ROUND(1, 2)", true, "function 'ROUND' is not available in an integer formula"},
      {"ROUND(1, 2, 3)", false, "too many arguments for function 'ROUND' at position 11"},
      {"SQRT(1, 2)", false, "too many arguments for function 'SQRT' at position 7"},
      {"SQRT()", false, "unexpected ')' at position 6"},
      {"SQRT(2", false, "unbalanced '(' of function 'SQRT' at position 1"},
      {"12abc", true, "malformed number at position 1"},
      {"1.5e+", true, "malformed number at position 1"},
      {"1.5e", false, "malformed number at position 1"},
      {"0x", true, "hexadecimal number without digits at position 1"},
      {"0x1G", true, "malformed number at position 1"},
      {"18446744073709551616", true, "number out of range at position 1"},
      {"0x10000000000000000", true, "hexadecimal number out of range at position 1"},
      {"1e999", false, "number out of range at position 1"},
      {"3 +", true, "unexpected end of formula at position 4"},
  };
  for (const SErrorCase& c : cases) {
    const std::string message = ParseError(c.m_pText, c.m_bInteger);
    EXPECT_NE(message.find(c.m_pExpected), std::string::npos)
        << "formula: " << c.m_pText << "\nmessage: " << message;
  }
}

TEST(Formula, NestingIsBoundedInsteadOfExhaustingTheStack) {
  const std::string deep = std::string(5000, '(') + "1" + std::string(5000, ')');
  EXPECT_NE(ParseError(deep, true).find("nested too deeply"), std::string::npos);

  std::string longSum = "1";
  for (int i = 0; i < 5000; ++i) longSum += "+1";
  EXPECT_NE(ParseError(longSum, true).find("too long or nested too deeply"), std::string::npos);

  std::string sum = "1";
  for (int i = 0; i < 499; ++i) sum += "+1";
  EXPECT_EQ(Int(sum), 500);
  EXPECT_EQ(Int(std::string(100, '(') + "7" + std::string(100, ')')), 7);
}

TEST(Formula, CopiesAreIndependentValues) {
  auto original = std::make_unique<CFormula>("A*2 + B", true);
  CFormula copy(*original);
  CFormula assigned("0", false);
  assigned = *original;
  original.reset();

  auto intVar = [](size_t i) -> int64_t { return i == 0 ? 10 : 1; };
  EXPECT_EQ(copy.EvaluateInteger(intVar, nullptr), 21);
  EXPECT_EQ(assigned.EvaluateInteger(intVar, nullptr), 21);
  EXPECT_TRUE(assigned.IsIntegerMode());
  EXPECT_EQ(assigned.GetText(), "A*2 + B");
  EXPECT_EQ(assigned.GetVariableNames(), (std::vector<std::string>{"A", "B"}));
}
