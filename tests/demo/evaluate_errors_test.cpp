// Expressions that name nothing: each gets status 0 and the message id that
// says why, and a record that no longer describes an object.
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <memory>
#include <set>
#include <vector>

#include "platform/text/gbk.h"
#include "tests/demo/patchy_target.h"
#include "tests/demo/service_driver.h"

namespace {

void ExpectError(std::uint32_t errorId, std::initializer_list<std::string> texts)
{
    ServiceDriver driver;
    for (const std::string& text : texts) {
        SCOPED_TRACE(text);
        const WatchRecord record = driver.Evaluate(text);
        EXPECT_EQ(record.status, 0);
        EXPECT_EQ(record.errorId, errorId);
    }
}

TEST(EvaluateErrors, EveryMessageIdHasAnInputThatBringsItOut)
{
    struct Case {
        std::uint32_t id;
        const char* text;
    };
    const Case cases[] = {
        {WERR_WRONG_EXPRESSION, "phase = 1"},      {WERR_EXPRESSION_FORMAT, "(unsigned char xdata)"},
        {WERR_ILLEGAL_CHARACTER, "phase # 1"},     {WERR_NUMERIC_TYPE, "cfg == 1"},
        {WERR_MISSING_OPEN, "phase)"},             {WERR_MISSING_CLOSE, "(phase"},
        {WERR_DIVISION_BY_ZERO, "1 / 0"},          {WERR_UNDEFINED, "(byte)phase"},
        {WERR_STRING_TOO_LONG, "'AB'"},            {WERR_QUOTES, "'A"},
        {WERR_NOT_BIT_ADDRESSABLE, "&red"},        {WERR_NO_SPACE, "(char __sfr *)0x80"},
        {WERR_READ_FAILED, "timings[12]"},         {WERR_INVALID_POINTER, "*(char xdata *)0"},
    };
    const std::uint32_t ids[] = {WERR_WRONG_EXPRESSION, WERR_EXPRESSION_FORMAT, WERR_ILLEGAL_CHARACTER,
                                 WERR_NUMERIC_TYPE, WERR_MISSING_OPEN, WERR_MISSING_CLOSE, WERR_DIVISION_BY_ZERO,
                                 WERR_UNDEFINED, WERR_STRING_TOO_LONG, WERR_QUOTES, WERR_NOT_BIT_ADDRESSABLE,
                                 WERR_NO_SPACE, WERR_READ_FAILED, WERR_INVALID_POINTER};
    ServiceDriver driver;
    for (const std::uint32_t id : ids) {
        const auto found = std::find_if(std::begin(cases), std::end(cases), [id](const Case& c) { return c.id == id; });
        ASSERT_NE(found, std::end(cases)) << "no input for message " << id;
        EXPECT_EQ(driver.ErrorOf(found->text), id) << found->text;
    }
}

TEST(EvaluateErrors, EveryCutOfAnExpressionGetsAnAnswer)
{
    // Text cut anywhere, as the user types it: each prefix evaluates or
    // names one of the messages, and nothing reads past what it was given.
    const std::set<std::uint32_t> known{WERR_WRONG_EXPRESSION, WERR_EXPRESSION_FORMAT, WERR_ILLEGAL_CHARACTER,
                                        WERR_NUMERIC_TYPE,     WERR_MISSING_OPEN,      WERR_MISSING_CLOSE,
                                        WERR_DIVISION_BY_ZERO, WERR_UNDEFINED,         WERR_STRING_TOO_LONG,
                                        WERR_QUOTES,           WERR_NOT_BIT_ADDRESSABLE, WERR_NO_SPACE,
                                        WERR_READ_FAILED,      WERR_INVALID_POINTER};
    ServiceDriver driver;
    for (const std::string text : {"*(unsigned char __xdata *)(cursor + 1) != 0 && !(phase >= 2 || red)",
                                   "(long)((char code *)label)[2] <= (signed char)'\\x80' == -(float)temperature",
                                   "fault && fault->cfg.offset > (int)lights[1].lamps[2] || (bit)0x100"}) {
        EXPECT_EQ(driver.Evaluate(text).status, 1) << text;
        for (std::size_t length = 0; length < text.size(); ++length) {
            const WatchRecord record = driver.Evaluate(text.substr(0, length));
            if (record.status == 0) {
                EXPECT_TRUE(known.contains(record.errorId)) << text.substr(0, length);
            }
        }
    }
}

TEST(EvaluateErrors, UnknownNamesAndMembersAreUndefined)
{
    ExpectError(WERR_UNDEFINED, {"nosuch", "Phase", "cfg.nosuch", "lights[0].cfg.nosuch", "current->nosuch"});
}

TEST(EvaluateErrors, BytesNoTokenStartsWithAreIllegal)
{
    ExpectError(WERR_ILLEGAL_CHARACTER, {"phase @", "$x", "phase # 1", "phase;", "a`", "phase\x01",
                                         GBK("变量"), "phase + " + GBK("一")});
}

TEST(EvaluateErrors, QuotesLeftOpenAreQuoteErrors)
{
    ExpectError(WERR_QUOTES, {"'A", "\"abc", "'\\'", "phase + '"});
}

TEST(EvaluateErrors, CharacterConstantsHoldOneCharacter)
{
    ExpectError(WERR_STRING_TOO_LONG, {"'AB'", "'\\n1'", "'" + GBK("变") + "'"});
    ExpectError(WERR_EXPRESSION_FORMAT, {"''"});
}

TEST(EvaluateErrors, StringsAndAddressesOfValuesAreWrongExpressions)
{
    ExpectError(WERR_WRONG_EXPRESSION, {"\"abc\"", "\"" + GBK("变量") + "\"", "&5", "&(phase + 1)", "&&phase"});
}

TEST(EvaluateErrors, BracketsThatCloseNothingMissTheirOpening)
{
    ExpectError(WERR_MISSING_OPEN, {")", "phase)", "timings[1]]", "(phase]", "[phase)", "phase ) ("});
}

TEST(EvaluateErrors, BracketsLeftOpenMissTheirClosing)
{
    ExpectError(WERR_MISSING_CLOSE, {"(phase", "timings[1", "((1)", "timings[(1)"});
}

TEST(EvaluateErrors, TextThatIsNoExpressionHasAFormatError)
{
    ExpectError(WERR_EXPRESSION_FORMAT, {"", "   ", "phase +", "1 2", "phase phase", "cfg.", "cfg.1", "()", "[1]",
                                         "timings[]", "* ", "0x", "08", "1e", "12ab", "1.2.3",
                                         "cfg->", "1 + / 2"});
}

TEST(EvaluateErrors, AssignmentsAreWrongExpressions)
{
    // A watch reads the target; "=" in any assignment is refused before the
    // text's form is looked at.
    ExpectError(WERR_WRONG_EXPRESSION, {"phase = 1", "phase += 1", "ticks <<= 1", "= 1", "(phase = 1)", "1 === 2",
                                        "cfg.red_time = nosuch +"});
}

TEST(EvaluateErrors, MalformedComparisonsAndCastsHaveAFormatError)
{
    ExpectError(WERR_EXPRESSION_FORMAT, {"1 <", "< 1", "1 && ", "|| 1", "!", "1 ! 2", "1 <> 2", "(int)",
                                         "(unsigned char xdata)", "(char *)", "(struct)x", "(union)sensor",
                                         "(unsigned float)1", "(long char)1", "(signed unsigned)1", "(short long)1",
                                         "(char char)1", "(float int)1", "(unsigned bit)1", "(const)1",
                                         "(__xdata *)0", "(int xdata code *)0", "(int 5)", "(int * x)0",
                                         "(char * * * * * * * * *)0"});
}

TEST(EvaluateErrors, CastsToNamesThatAreNoTypesAreUndefined)
{
    ExpectError(WERR_UNDEFINED, {"(byte)phase", "(uint8_t)0x100", "(foo)(1)", "(xdata)1", "(phase)ticks",
                                 "(unsigned char)nosuch"});
}

TEST(EvaluateErrors, NestingIsBounded)
{
    ServiceDriver driver;
    const auto nested = [](int depth) { return std::string(depth, '(') + "1" + std::string(depth, ')'); };
    EXPECT_EQ(driver.Evaluate(nested(60)).status, 1);
    EXPECT_EQ(driver.ErrorOf(nested(65)), WERR_EXPRESSION_FORMAT);
    EXPECT_EQ(driver.ErrorOf(std::string(500, '-') + "1"), WERR_EXPRESSION_FORMAT);
    // Casts and the new prefixes nest under the same bound.
    const auto repeated = [](std::string_view part, int times) {
        std::string text;
        for (int i = 0; i < times; ++i) text += part;
        return text + "1";
    };
    EXPECT_EQ(driver.Evaluate(repeated("(int)", 60)).status, 1);
    EXPECT_EQ(driver.ErrorOf(repeated("(int)", 65)), WERR_EXPRESSION_FORMAT);
    EXPECT_EQ(driver.ErrorOf(repeated("!", 500)), WERR_EXPRESSION_FORMAT);
    EXPECT_EQ(driver.ErrorOf(repeated("&&", 300)), WERR_EXPRESSION_FORMAT);
    EXPECT_EQ(driver.ErrorOf(repeated("(char xdata *)", 70)), WERR_EXPRESSION_FORMAT);
}

TEST(EvaluateErrors, DivisionByZeroIsCaughtForEveryType)
{
    ExpectError(WERR_DIVISION_BY_ZERO, {"1 / 0", "5 % 0", "ticks / ticks", "1.0 / 0", "1L % (2 - 2)", "0 || 1 / 0",
                                        "1 && 1 % 0", "(int)(1 / 0)", "1 / (char)256"});
}

TEST(EvaluateErrors, OperatorsOnTypesThatDoNotTakeThemAreNumericTypeErrors)
{
    ExpectError(WERR_NUMERIC_TYPE, {"phase[0]", "phase.x", "cfg.red_time.x", "cfg + 1", "-cfg", "*phase", "phase->x",
                                    "cfg->red_time", "timings[1.5]", "1.5 % 2", "1.5 << 1", "~1.5", "1 << -1",
                                    "cursor * 2", "cursor + cursor", "2 - cursor", "-cursor", "4294967296", "1e39",
                                    "timings[cfg]"});
}

TEST(EvaluateErrors, AggregatesHaveNoValueToCompareTestOrCast)
{
    ExpectError(WERR_NUMERIC_TYPE, {"cfg == cfg", "cfg != 0", "lights[0] < 1", "1 >= sensor", "sensor && 1",
                                    "0 || cfg", "!cfg", "!lights[0]", "(int)cfg", "(char *)sensor",
                                    "(unsigned char)lights[1]"});
}

TEST(EvaluateErrors, CastsTheWatchCannotMakeAreNumericTypeErrors)
{
    ExpectError(WERR_NUMERIC_TYPE, {"(struct light)x", "(struct light xdata *)current", "(union reading)sensor",
                                    "(enum mode)1", "(long long)1", "(void)phase", "(void *)0", "(float)cursor",
                                    "(char *)1.5", "cursor < 1.5", "2.0 == label"});
}

TEST(EvaluateErrors, RegistersHaveNoSpaceAPointerCanLocate)
{
    ExpectError(WERR_NO_SPACE, {"(unsigned char __sfr *)0x80", "*(char sfr *)0x90", "(__sbit)1", "(int __sfr16 *)0"});
}

TEST(EvaluateErrors, OnlyObjectsOutsideTheBitSpaceHaveAnAddress)
{
    ExpectError(WERR_NOT_BIT_ADDRESSABLE, {"&red", "&green"});
}

TEST(EvaluateErrors, NullPointersAndUnknownSpacesAreInvalidPointers)
{
    ExpectError(WERR_INVALID_POINTER, {"*fault", "fault->state", "fault[0]", "fault->cfg.red_time",
                                       "*(char xdata *)0", "*(int code *)0x10000", "*(char *)0x200810",
                                       "*(char *)(unsigned char xdata *)0"});

    ServiceDriver driver;
    WatchRecord label = driver.Evaluate("label");
    label.value = 0x200810;  // a top byte no space has
    driver.Request(DRQ_WRITE_VALUE, &label);
    EXPECT_EQ(driver.ErrorOf("*label"), WERR_INVALID_POINTER);
}

TEST(EvaluateErrors, IndexesOutsideADeclaredArrayNameNoElement)
{
    ExpectError(WERR_READ_FAILED, {"timings[12]", "timings[-1]", "lights[3].state", "name[8]", "lights[1].lamps[3]",
                                   "*(long data *)0xFE + 1", "(int)*(int idata *)0xFF"});
}

TEST(EvaluateErrors, ValuesThatCannotBeReadFailOnlyWhereTheValueIsNeeded)
{
    ServiceDriver driver(std::make_unique<PatchyTarget>(WS_DATA, 0x30, 0x31));
    const WatchRecord phase = driver.Evaluate("phase");
    EXPECT_EQ(phase.status, 1) << "the object is still there";
    EXPECT_EQ(phase.unavailable, 1u);
    EXPECT_EQ(driver.ErrorOf("phase + 1"), WERR_READ_FAILED);
    EXPECT_EQ(driver.ErrorOf("timings[phase]"), WERR_READ_FAILED);
    EXPECT_EQ(driver.ErrorOf("&phase"), 0u) << "an address needs no value";
}

TEST(EvaluateErrors, TheFirstProblemInReadingOrderWinsAcrossStages)
{
    ServiceDriver driver;
    EXPECT_EQ(driver.ErrorOf("nosuch @ )"), WERR_ILLEGAL_CHARACTER) << "characters before brackets";
    EXPECT_EQ(driver.ErrorOf("(nosuch +"), WERR_MISSING_CLOSE) << "brackets before form";
    EXPECT_EQ(driver.ErrorOf("nosuch +"), WERR_EXPRESSION_FORMAT) << "form before meaning";
    EXPECT_EQ(driver.ErrorOf("1 / 0 + nosuch"), WERR_DIVISION_BY_ZERO) << "meaning from left to right";
}

TEST(EvaluateErrors, AFailedRecordDescribesNoObject)
{
    ServiceDriver driver;
    WatchRecord record = driver.Evaluate("cfg");
    const std::string text = "nosuch";
    ::SendMessage(driver.service.GetSafeHwnd(), UWM_DEBUG_REQUEST, reinterpret_cast<WPARAM>(text.c_str()),
                  reinterpret_cast<LPARAM>(&record));
    EXPECT_EQ(record.status, 0);
    EXPECT_EQ(record.space, WS_NONE);
    EXPECT_EQ(record.typeRef, 0u);
    EXPECT_EQ(record.count, 0);
    EXPECT_EQ(record.address, 0u);
}

TEST(EvaluateErrors, LongTextsAreRefusedWithoutReadingPastTheCap)
{
    ServiceDriver driver;
    // 1024 bytes is the longest text taken.
    EXPECT_EQ(driver.Evaluate(std::string(1023, ' ') + "1").status, 1);
    EXPECT_EQ(driver.ErrorOf(std::string(1024, ' ') + "1"), WERR_STRING_TOO_LONG);
    // A text without a terminator in its first 1025 bytes: read no further.
    std::vector<char> unterminated(1025, 'a');
    WatchRecord record{};
    ::SendMessage(driver.service.GetSafeHwnd(), UWM_DEBUG_REQUEST, reinterpret_cast<WPARAM>(unterminated.data()),
                  reinterpret_cast<LPARAM>(&record));
    EXPECT_EQ(record.status, 0);
    EXPECT_EQ(record.errorId, WERR_STRING_TOO_LONG);
}

}  // namespace
