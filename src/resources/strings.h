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
    MinimumsPage = 3,
    RootsPage = 4,
    MaximumsPage = 5,
    GeneralPage = 6,
    NoRoots = 7,
    RootsHeader = 8,
    NoMaximums = 9,
    MaximumsHeader = 10,
    SummaryOfText = 11,
    RootOfText = 12,
    MaximumOfText = 13,
    NoMinimums = 14,
    MinimumsHeader = 15,
    MinimumOfText = 16,
    MustChooseFunction = 17,
    AnalysisTitle = 19,
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
    SummaryOfPages = 44,
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
    Saved = 74,
    ErrorInFile = 75,
    ManyLines = 76,
    NoExtrapolation = 77,
    ApproxType = 78,
    TooManyTerms = 79,
    Approx = 80,
    ApproximateWith = 81,
    Integral = 82,
    IntegralUndefined = 83,

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
    TouchToSelect = 1050,
    ChooseFirstPoint = 1051,
    ChooseSecondPoint = 1052,
    ChooseMiddlePoint = 1053,
    SamePoints = 1054,
    AutoTooBig = 1055,
    AutoUndetermined = 1056,
    TraceX = 1057,
    TraceY = 1058,
    TraceParameter = 1059,
    TraceDerivative = 1060,
    TraceDerivativeError = 1061,
    TraceDerivatives = 1062,
    TraceDerivativesError = 1063,
    InputNotANumber = 1064,
    InputNotFinite = 1065,
    BoundsEqual = 1066,
    FactorInvalid = 1067,
    PictureNotWritten = 1068,
    PictureEnding = 1069,

    // Why a method gives no curve, and the boxes about it.
    InFunction = 1100,
    LeastSetCaption = 1101,
    LeastSetFailed = 1102,
    LeastSetFailedWeights = 1103,
    QuadraticTooFew = 1104,
    QuadraticEven = 1105,
    QuadraticOrder = 1106,
    CubicTooFew = 1107,
    CubicOrder = 1108,
    CubicFlag = 1109,
    CubicUnsolved = 1110,
    HermiteTooFew = 1111,
    HermiteOrder = 1112,
    OverhauserTooFew = 1113,
    OverhauserOrder = 1114,
    OverhauserPiece = 1115,
    LeastSquaresDistinct = 1116,
    LeastSquaresWeights = 1117,
    DifferencesEqual = 1118,
    TooMuchWork = 1119,

    // Dialogs of the methods.
    TermsNote = 1200,
    BetaNote = 1201,
    BetaBias = 1202,
    BetaBiasTip = 1203,
    BetaTension = 1204,
    BetaTensionTip = 1205,
    LeftValue = 1206,
    RightValue = 1207,
    LeftQuadratic = 1208,
    LeftFirstDerivative = 1209,
    LeftSecondDerivative = 1210,
    RightQuadratic = 1211,
    RightFirstDerivative = 1212,
    RightSecondDerivative = 1213,

    // Reports and exported files.
    RootOfPage = 1220,
    ExtremumOfPage = 1221,
    FileErrorText = 1222,
    FileErrorCaption = 1223,
};

/// The text of a number; empty for a number that the table does not hold.
std::u16string_view Text(StringId id);

/// Fills a text's "%s" and "%d" in order with the given texts; "%%" stays one "%". Places without
/// a text are left empty, surplus texts are ignored.
std::u16string FillIn(std::u16string_view format, std::initializer_list<std::u16string_view> texts);

/// Decimal digits of a number, for FillIn.
std::u16string NumberText(std::int64_t number);

}  // namespace kalvex
