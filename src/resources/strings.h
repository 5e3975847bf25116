// The program's texts. Every message that a user can see has its number here and is written once.
// Spelling is part of the interface: nothing is corrected.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace kalvex {

/// Numbers of the string table. Texts that have no number of their own there begin at 1000.
enum class StringId : std::int32_t {
    Title = 1,
    PictureAlbumClass = 2,
    MustChooseFunction = 17,
    Error = 27,
    ParametricNeedsTwo = 31,
    ErrorInFunction = 32,
    ErrorFormat = 33,
    EmptyString = 34,
    TooManyClosing = 35,
    UnevenBrackets = 36,
    BadBeginning = 37,
    NextTwoCharacters = 38,
    SignBeforeClosing = 39,
    SignAfterOpening = 40,
    NameWithoutBracket = 41,
    Success = 42,
    UnknownLexeme = 43,
    SlideToSelect = 48,
    WrongNumberOfCommas = 51,
    CommaPlacement = 53,
    Select = 54,
    Unselect = 55,
    DivisionByZero = 57,
    LogarithmOfNegative = 58,
    AcosDomain = 59,
    AsinDomain = 60,
    FractionalPower = 61,
    CiAtZero = 62,
    ChiAtZero = 63,
    PsiDomain = 64,
    EiDomain = 65,
    BetaDomain = 66,
    BesselDomain = 67,
    ModifiedBesselDomain = 68,
    HyperDomain = 69,
    ChebDomain = 70,
    HiDomain = 71,
    LagDomain = 72,
    LegDomain = 73,
    ErrorInFile = 75,
    ManyLines = 76,
    NoExtrapolation = 77,
    ApproxType = 78,
    TooManyTerms = 79,

    Warning = 1000,
    TestTitle = 1001,
    UnknownCodeText = 1002,
    UnknownCodeTitle = 1003,
    EvalErrorTitle = 1004,
    RegistryErrorText = 1005,
    RegistryErrorTitle = 1006,
    SaveIntoRegistryFailed = 1007,
    PictureSavedText = 1008,
    PictureSavedCaption = 1009,
    TouchToSelect = 1010,
    ChooseFirstPoint = 1011,
    ChooseSecondPoint = 1012,
    ChooseMiddlePoint = 1013,
    SamePoints = 1014,
    AutoTooBig = 1015,
    AutoUndetermined = 1016,
    TraceX = 1017,
    TraceY = 1018,
    TraceParameter = 1019,
    TraceDerivative = 1020,
    TraceDerivativeError = 1021,
    TraceDerivatives = 1022,
    TraceDerivativesError = 1023,
    BoundNotANumber = 1024,
    BoundNotFinite = 1025,
    BoundsEqual = 1026,
    FactorInvalid = 1027,
    PictureNotWritten = 1028,
    PictureEnding = 1029,
};

/// The text of a number; empty for a number that the table does not hold.
std::u16string_view Text(StringId id);

/// Fills a text's "%s" and "%d" in order with the given texts; "%%" stays one "%". Places without
/// a text are left empty, surplus texts are ignored.
std::u16string FillIn(std::u16string_view format, std::initializer_list<std::u16string_view> texts);

/// Decimal digits of a number, for FillIn.
std::u16string NumberText(std::int64_t number);

}  // namespace kalvex
