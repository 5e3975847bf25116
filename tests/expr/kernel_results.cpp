#include "kernel_results.h"

#include <array>
#include <bit>
#include <cmath>
#include <fstream>
#include <limits>
#include <random>
#include <sstream>

#include "base/encoding.h"
#include "expr/evaluator.h"
#include "expr/program.h"
#include "random_expression.h"

namespace kalvex::testing_support {
namespace {

constexpr std::uint64_t kFnvBasis = 14695981039346656037u;
constexpr std::uint64_t kFnvPrime = 1099511628211u;

std::uint64_t Mixed(std::uint64_t hash, std::uint64_t word) {
    for (int byte = 0; byte < 8; ++byte)
        hash = (hash ^ (word >> (8 * byte) & 255u)) * kFnvPrime;
    return hash;
}

/// Arguments: evenly spread ones, random ones of every magnitude, and the ends of the ranges in
/// which the functions are finite.
std::vector<double> Arguments() {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    constexpr int kOfEverySize = 2000;
    std::vector<double> xs;
    for (int i = -1000; i <= 1000; ++i)
        xs.push_back(0.0173 * i);
    std::mt19937_64 generator(20);
    for (int i = 0; i < kOfEverySize; ++i)
        xs.push_back(std::bit_cast<double>(generator()));
    for (const double special :
         {0.0, 1e-310, 1e-30, 0.5, 1.0, 20.0, 170.5, 171.6243769563027, 708.4, 709.0, 709.782711,
          709.782712893383973, 710.475860073943, 745.1, 746.0, 1e5, 1e15, 1e300, kInfinity}) {
        xs.push_back(special);
        xs.push_back(-special);
    }
    return xs;
}

std::vector<KernelResult> ReadRows(const char* path) {
    std::vector<KernelResult> rows;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        std::istringstream fields(line);
        KernelResult& row = rows.emplace_back();
        fields >> std::hex >> row.hash >> row.text;
    }
    return rows;
}

}  // namespace

std::vector<std::string> KernelCorpus() {
    constexpr int kRandom = 400;
    constexpr int kDepth = 3;
    std::vector<std::string> texts = {
        "sin(x)",   "cos(x)",  "tg(x)",      "ln(x)",   "lg(x)",     "sh(x)",        "ch(x)",
        "th(x)",    "exp(x)",  "acos(x)",    "asin(x)", "atg(x)",    "int(x)",       "frac(x)",
        "abs(x)",   "erf(x)",  "Gamma(x)",   "1/x",     "x/3",       "x^2",          "x^3",
        "x^7",      "x^19",    "x^20",       "x^25",    "x^1024",    "x^(0-1)",      "x^(0-3)",
        "x^(0-9)",  "x^0.5",   "abs(x)^1.7", "2^x",     "10^x",      "abs(x)^x",     "log(3,x)",
        "log(x,7)", "x*x*3+1", "x*2-x^2",    "1-x*x",   "3*x^3+x+1", "2*x^5-4*x^3+x"};
    Generator generator(2026);
    for (int i = 0; i < kRandom; ++i)
        texts.push_back(RandomExpression(generator, kDepth, true));
    return texts;
}

std::uint64_t HashOfResults(const std::string& text, const KernelTable& kernels) {
    constexpr double kOrdinate = 0.75;
    static const std::vector<double> xs = Arguments();
    std::vector<double> values(xs.size());
    std::vector<std::int32_t> errors(xs.size());
    EvaluateInto({CompileProgram(Widen(text), kernels)}, xs, kOrdinate, values, errors);
    std::uint64_t hash = kFnvBasis;
    for (std::size_t i = 0; i < xs.size(); ++i) {
        const std::uint64_t bits =
            std::isnan(values[i]) ? 0x7FF8000000000000u : std::bit_cast<std::uint64_t>(values[i]);
        hash = Mixed(Mixed(hash, bits), static_cast<std::uint32_t>(errors[i]));
    }
    return hash;
}

std::vector<KernelResult> ReadKernelResults() {
    std::vector<KernelResult> results = ReadRows(KALVEX_TEST_DATA "/kernel_results.tsv");
    if (!KALVEX_SLEEF_3_6) return results;
    for (const KernelResult& newer : ReadRows(KALVEX_TEST_DATA "/kernel_results_sleef_3.6.tsv")) {
        for (KernelResult& result : results)
            if (result.text == newer.text) result.hash = newer.hash;
    }
    return results;
}

}  // namespace kalvex::testing_support
