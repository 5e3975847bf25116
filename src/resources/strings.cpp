#include "resources/strings.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "base/encoding.h"

namespace kalvex {
namespace {

struct Entry {
    StringId id;
    std::u16string_view text;
};

constexpr Entry kTable[] = {
    {StringId::Title, u"Kalvex"},
    {StringId::PictureAlbumClass, u"HTCAlbumClass"},
    {StringId::MinimumsPage, u"Minimums"},
    {StringId::RootsPage, u"Roots"},
    {StringId::MaximumsPage, u"Maximums"},
    {StringId::GeneralPage, u"General"},
    {StringId::NoRoots, u"Roots of %s on the interval (%f,%f) not found.\r\n"},
    {StringId::RootsHeader, u"The roots of %s\r\non the interval (%f,%f):\r\n"},
    {StringId::NoMaximums, u"Maximums of %s on the interval (%f,%f) not found.\r\n"},
    {StringId::MaximumsHeader, u"The maximums of %s\r\non the interval (%f,%f):\r\n"},
    // KEEP: in both summaries the least value "reaches a maximum" too, and two blanks stand before
    // the bracket of the minimums.
    {StringId::SummaryOfText,
     u"On the interval (%f,%f)\r\n%s has:\r\n  %d roots (See below)\r\n  %d maximums (See "
     u"below)\r\n  %d minimums  (See below)\r\n\r\n%s reaches a maximum:\r\n  y=%f\r\n%s reaches a "
     u"maximum:\r\n  y=%f\r\nMean value of function: %f\r\n"},
    {StringId::RootOfText, u"  x=%f\r\n"},
    {StringId::MaximumOfText, u"  x=%f  y=%f\r\n"},
    {StringId::NoMinimums, u"Minimums of %s on the interval (%f,%f) not found.\r\n"},
    {StringId::MinimumsHeader, u"The minimums of %s\r\non the interval (%f,%f):\r\n"},
    {StringId::MinimumOfText, u"  x=%f  y=%f\r\n"},
    {StringId::MustChooseFunction,
     u"You must choose function!\n\nTo select the double-tap the function name"},
    {StringId::AnalysisTitle, u"Analysis function"},
    {StringId::Error, u"Error!"},
    {StringId::ParametricNeedsTwo,
     u"You have entered only one equation, while the parametric type requires two!"},
    {StringId::ErrorInFunction, u"Error in %d function:\n%s\n%s"},
    {StringId::ErrorFormat, u"Error %s"},
    {StringId::EmptyString, u"Empty string"},
    {StringId::TooManyClosing, u"Too many closing brackets"},
    {StringId::UnevenBrackets, u"Various number of opening and closing brackets"},
    {StringId::BadBeginning, u"Expression can not begin with the characters: *,/,^)"},
    {StringId::NextTwoCharacters, u"Next two characters"},
    {StringId::SignBeforeClosing, u"Before the closing bracket may be a sign"},
    {StringId::SignAfterOpening,
     u"After opening the brackets can not be a sign or closing bracket"},
    {StringId::NameWithoutBracket, u"After the names of the functions should be '('"},
    {StringId::Success, u"Sucsses!"},
    {StringId::UnknownLexeme, u"There is an unknown lexeme"},
    {StringId::SummaryOfPages,
     u"On the interval (%f,%f)\r\n%s has:\r\n  %d roots (See 'Roots Tab')\r\n  %d maximums (See "
     u"'Maximums Tab')\r\n  %d minimums  (See 'Minimums Tab')\r\n\r\n%s reaches a maximum:\r\n  "
     u"y=%f\r\n%s reaches a maximum:\r\n  y=%f\r\n\r\nMean value of function: %f"},
    {StringId::ParameterRange, u"MaxParam must be greater than MinParam!"},
    // In the table, never shown: help without a page closes silently.
    {StringId::CannotOpenHelp, u"Can't open help file!"},
    {StringId::SlideToSelect, u"<< Slide to select function >>"},
    {StringId::EnterExpression, u"Enter expression here"},
    {StringId::WrongNumberOfCommas, u"Wrong number of commas"},
    {StringId::CommaPlacement, u"Check the placement of commas"},
    {StringId::Select, u"Select"},
    {StringId::Unselect, u"Unselect"},
    {StringId::DivisionByZero, u"Division by 0 not allowed"},
    {StringId::LogarithmOfNegative, u"The logarithm of a negative argument is not specified"},
    {StringId::AcosDomain, u"acos is defined on the interval [-1,1]"},
    {StringId::AsinDomain, u"asin is defined on the interval [-1,1]"},
    {StringId::FractionalPower, u"Fractional degree is defined only on nonnegative numbers"},
    {StringId::CiAtZero, u"The function Ci is not defined at zero"},
    {StringId::ChiAtZero, u"The function Chi is not defined at zero"},
    {StringId::PsiDomain, u"The function Psi is not defined in the negative integers"},
    {StringId::EiDomain, u"The function Ei is defined only on nonnegative numbers"},
    {StringId::BetaDomain, u"Beta function of a negative argument is not specified"},
    {StringId::BesselDomain,
     u"Bessel function is not defined in the negative numbers of the second argument and the "
     u"first non-integer"},
    {StringId::ModifiedBesselDomain,
     u"Modified Bessel function is not defined in non-positive numbers of the second argument "
     u"and negative first"},
    {StringId::HyperDomain, u"Hypergeometric function is defined on the interval [-1,1]"},
    {StringId::ChebDomain,
     u"Cheb first argument should be either 1 or 2, the second must be an integer, the third "
     u"should be in the range [-1, 1]"},
    {StringId::HiDomain, u"Hi first argument should be an integer non-negative number"},
    {StringId::LagDomain, u"Lag first argument should be a positive integer"},
    {StringId::LegDomain,
     u"First argument Leg must be a positive integer, the second should be from the interval "
     u"[-1, 1]"},
    {StringId::Saved, u"Saved!"},
    {StringId::ErrorInFile, u"Error in file!"},
    {StringId::ManyLines,
     u"The file %s has very many lines, the construction schedule can take a very long time. "
     u"Continue?"},
    {StringId::NoExtrapolation, u"When linear interpolation, extrapolation is impossible"},
    {StringId::ApproxType, u"Approx. type"},
    {StringId::TooManyTerms,
     u"In function %d:\nThe number of terms to use in the approximating polynomial, must be at "
     u"least 1 and it must less than the number of input points."},
    {StringId::Approx, u"Approx."},
    {StringId::ApproximateWith, u"Data from file %s approximate with %s.\r\n"},
    {StringId::Integral, u"%s\r\nThe integral of a function %s\r\nin the range of %f to %f is %f"},
    {StringId::IntegralUndefined,
     u"%s\r\nThe integral of a function %s\r\nin the range of %f to %f is not defined."},
    {StringId::Warning, u"Warning!"},
    {StringId::TestTitle, u"Test"},
    {StringId::UnknownCodeText, u"RegOpenKeyEx"},
    {StringId::UnknownCodeTitle, u"батарея %d"},
    {StringId::EvalErrorTitle, u"%s error"},
    {StringId::RegistryErrorText,
     u"Restart the program. If the error appears again, reinstall the program."},
    {StringId::RegistryErrorTitle, u"Registry error"},
    {StringId::SaveIntoRegistryFailed, u"Error save value into registry!"},
    {StringId::PictureSavedText, u"Save"},
    {StringId::PictureSavedCaption, u"Info"},
    // KEEP: the text begins with a blank.
    {StringId::TouchToSelect, u" << Touch to select the coordinates >>"},
    {StringId::ChooseFirstPoint, u"Choose First point"},
    {StringId::ChooseSecondPoint, u"Choose Second point"},
    {StringId::ChooseMiddlePoint, u"Choose middle point"},
    {StringId::SamePoints, u"You choose points with same X of Y!"},
    {StringId::AutoTooBig, u"Certain automatically coordinates are too big!"},
    {StringId::AutoUndetermined,
     u"We can not determine the boundaries automatically. Just enter a border by hand in the "
     u"window 'Window View'"},
    {StringId::TraceX, u"x=%f"},
    {StringId::TraceY, u"y=%f"},
    {StringId::TraceParameter, u"T=%f"},
    {StringId::TraceDerivative, u"dy/dx=%f"},
    {StringId::TraceDerivativeError, u"dy/dx: error"},
    {StringId::TraceDerivatives, u"dy/dx=%f\ndx/dT=%f\ndy/dT=%f"},
    {StringId::TraceDerivativesError, u"dy/dx: error\ndx/dT: error\ndy/dT: error"},
    {StringId::InputNotANumber, u"%s is not a number."},
    {StringId::InputNotFinite, u"%s is too large."},
    {StringId::BoundsEqual, u"%s and %s must differ."},
    {StringId::FactorInvalid, u"%s must be a number greater than 0."},
    {StringId::PictureNotWritten, u"The picture could not be written:\n%s"},
    {StringId::PictureEnding, u"The name of the picture must end in .png, .svg, .pdf or .bmp:\n%s"},
    {StringId::InFunction, u"In function %d:\n%s"},
    {StringId::LeastSetCaption, u"error"},
    {StringId::LeastSetFailed, u"LEAST_SET - Fatal error!"},
    {StringId::LeastSetFailedWeights, u"LEAST_SET - Fatal error!\n"},
    {StringId::QuadraticTooFew, u"The quadratic spline needs at least three points."},
    {StringId::QuadraticEven, u"The quadratic spline needs an odd number of points."},
    {StringId::QuadraticOrder,
     u"The quadratic spline needs x values that increase from line to line."},
    {StringId::CubicTooFew, u"The cubic spline needs at least two points."},
    {StringId::CubicOrder, u"The cubic spline needs x values that increase from line to line."},
    {StringId::CubicFlag, u"The boundary flags of the cubic spline must be 0, 1 or 2."},
    {StringId::CubicUnsolved,
     u"The cubic spline could not be computed: the x values are too close to each other."},
    {StringId::HermiteTooFew, u"The cubic Hermite method needs at least two points."},
    {StringId::HermiteOrder,
     u"The cubic Hermite method needs x values that increase from line to line."},
    {StringId::OverhauserTooFew, u"The Overhauser splines need at least three points."},
    {StringId::OverhauserOrder,
     u"The Overhauser spline needs x values that increase from line to line."},
    {StringId::OverhauserPiece, u"The Overhauser spline has no such piece."},
    {StringId::LeastSquaresDistinct,
     u"The least squares polynomial has more terms than the file has different x values."},
    {StringId::LeastSquaresWeights, u"The least squares polynomial needs weights greater than 0."},
    {StringId::TooMuchWork, u"This method would take far too long for so many points."},
    {StringId::DifferencesEqual, u"Divided differences need x values that are all different."},
    {StringId::TermsNote, u"Enter the number of terms to use in the approximating polynomial."},
    {StringId::BetaNote,
     u"If B1 = 1, B2 = 0, the cubic beta spline will be the same as the cubic B spline. With B1 = "
     u"1, B2 large, the beta spline becomes like a linear spline."},
    {StringId::BetaBias, u"B1="},
    {StringId::BetaBiasTip, u"The bias parameter. B1 = 1 for no skew or bias."},
    {StringId::BetaTension, u"B2="},
    {StringId::BetaTensionTip, u"The tension parameter. B2 = 0 for no tension."},
    {StringId::LeftValue, u"Left value (L):"},
    {StringId::RightValue, u"Right value (R):"},
    {StringId::LeftQuadratic, u"the cubic spline should be a quadratic over the first interval"},
    {StringId::LeftFirstDerivative, u"the first derivative at the left endpoint should be L"},
    {StringId::LeftSecondDerivative, u"the second derivative at the left endpoint should be L"},
    {StringId::RightQuadratic, u"the cubic spline should be a quadratic over the last interval"},
    {StringId::RightFirstDerivative, u"the first derivative at the right endpoint should be R"},
    {StringId::RightSecondDerivative, u"the second derivative at the right endpoint should be R"},
    {StringId::RootOfPage, u"x=%f\r\n"},
    {StringId::ExtremumOfPage, u"x=%f  y=%f\r\n"},
    // KEEP: the text and the caption of the box about a file that cannot be written.
    {StringId::FileErrorText, u"file error"},
    {StringId::FileErrorCaption, u"endl"},
    // KEEP: "Wight", "parametr" and "mjde" are spelled so.
    {StringId::OptionLineWidth,
     u"Wight of graph line:~~You can choose the width of the line graphs of functions"},
    {StringId::OptionMaxAngle,
     u"Max angle in polar mode:~~You can choose the value of the maximum angle in the construction "
     u"of graph of the function in polar coordinates"},
    {StringId::OptionTextSize,
     u"Text size:~~You can choose the font size of names of functions on the screen"},
    {StringId::OptionMinParam,
     u"Min value of parametr:~~You can choose the minimum value of the parameter in constructing "
     u"the graph of a function defined parametrically"},
    {StringId::OptionMaxParam,
     u"Max value of parametr:~~You can choose the maximum value of the parameter in constructing "
     u"the graph of a function defined parametrically"},
    {StringId::OptionColours,
     u"Colour equ's in Graph Table~~Determine whether function names are displayed color, which is "
     u"constructed of schedule"},
    {StringId::OptionShowGroup, u"Show on graph window"},
    {StringId::OptionLabels,
     u"Labels~~Determine whether function names are displayed on the screen"},
    {StringId::OptionCoords,
     u"Coords~~Determine whether to show the signature of coordinates on the axis on the screen"},
    {StringId::OptionGrid, u"Grid~~Determine whether to display the grid on the screen"},
    {StringId::OptionDerivative,
     u"Deriv.~~Determine whether to show the derivative on the screen in Trace mjde"},
    {StringId::OptionAxes, u"Axes~~Determine whether to show the coordinate axes on the screen"},
    {StringId::OptionInterpolation, u"Interpolation type:~~Choose the type of interpolation"},
    {StringId::OptionPolarGrid,
     u"Polar grid~~Draw the grid as circles about the origin instead of lines"},
    {StringId::TextSizeFormat, u"%d %s"},
    {StringId::TextSizeUnit, u"pt"},
    {StringId::KeptCharacters, u"only the first 50 characters are kept for the next start"},
    {StringId::InsertKey, u"f(x)"},
    {StringId::InsertKeyTip, u"Insert a function, edit the text (Shift+F10)"},
    {StringId::NamesOffered, u"names: %s"},
    {StringId::NameHighlighted, u"%s, %d of %d"},
    {StringId::LineNumber, u"Function %d"},
    {StringId::LineSelected, u"selected"},
    {StringId::LineNotSelected, u"not selected"},
    {StringId::NamesList, u"Function names"},
    {StringId::LinesScroll, u"Lines"},
    {StringId::HelpOk, u"Ok"},
    {StringId::HelpFind, u"Find in the help"},
    {StringId::HelpFindTip, u"Enter finds the next place, Shift+Enter the one before"},
    {StringId::HelpNotFound, u"not found"},
    {StringId::AboutVersion, u"version 3.01 (Build 1801)"},
    {StringId::AboutInvitation,
     u"Questions and suggestions are welcome: tell us what you miss and what could be better."},
    {StringId::AboutLicence,
     u"Free software under the GNU General Public License, version 3 or later."},
    {StringId::AboutPicture, u"The Kalvex icon: a curve through the origin"},
    {StringId::AboutOk, u"OK"},
    {StringId::TermsCaption, u"Terms:"},
    {StringId::LeftBoundary, u"Left boundary:"},
    {StringId::RightBoundary, u"Right boundary:"},
    {StringId::MethodLeastSquares, u"Least squares polyn."},
    {StringId::MethodDividedDifferences, u"Divided differ. polyn."},
    {StringId::MethodBSplines, u"B splines"},
    {StringId::MethodBetaSplines, u"Beta splines"},
    {StringId::MethodOverhauserNonuniform, u"nonuniform spline"},
    {StringId::MethodOverhauserUniform, u"uniform spline"},
    {StringId::MethodOverhauser, u"Overhauser spline"},
    {StringId::MethodConstantSpline, u"constant spline"},
    {StringId::MethodLinearSpline, u"linear spline"},
    {StringId::MethodQuadraticSpline, u"quadratic spline"},
    {StringId::MethodCubicSpline, u"cubic spline"},
    {StringId::MethodCubicHermite, u"cubic Hermite"},
    // KEEP: the menu word is spelled so.
    {StringId::MethodLagrange, u"Largange"},
    {StringId::OverhauserMenu, u"Overhauser spline"},
    {StringId::PiecewiseMenu, u"Piecewise"},
};

}  // namespace

std::u16string_view Text(StringId id) {
    const auto* const entry =
        std::find_if(std::begin(kTable), std::end(kTable),
                     [id](const Entry& candidate) { return candidate.id == id; });
    return entry == std::end(kTable) ? std::u16string_view{} : entry->text;
}

std::u16string FillIn(std::u16string_view format,
                      std::initializer_list<std::u16string_view> texts) {
    std::u16string out;
    const auto* next = texts.begin();
    for (std::size_t i = 0; i < format.size(); ++i) {
        const bool place = format[i] == u'%' && i + 1 < format.size();
        if (!place) {
            out.push_back(format[i]);
        } else if (format[++i] == u'%') {
            out.push_back(u'%');
        } else if (next != texts.end()) {
            out.append(*next++);
        }
    }
    return out;
}

std::u16string NumberText(std::int64_t number) {
    std::array<char, 24> digits{};
    const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), number);
    return Widen({digits.data(), result.ptr});
}

}  // namespace kalvex
