// Compares the methods with the tables of scripts/make-interpolation-tables. The relative error of
// a value must not exceed 1e-12. When the value is the sum of terms more than a hundred times as
// large, the problem is ill-conditioned, and the error may be 1e-14 times the size of the terms.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "expr/eval_error.h"
#include "interp/approximation.h"
#include "numbers/decimal.h"

namespace kalvex {
namespace {

struct Row {
    char kind = ' ';
    std::vector<double> numbers;
};

std::vector<Row> ReadTable(const std::filesystem::path& path) {
    std::ifstream file(path);
    std::vector<Row> rows;
    for (std::string line; std::getline(file, line);) {
        Row row{line.at(0), {}};
        std::istringstream fields(line.substr(1));
        for (std::string field; fields >> field;)
            row.numbers.push_back(ParseDecimalPrefix(field).value);
        rows.push_back(row);
    }
    return rows;
}

struct Case {
    ApproxParameters parameters;
    std::vector<double> t;
    std::vector<double> values;
    std::vector<double> sizes;
};

struct Table {
    std::vector<double> x;
    std::vector<double> y;
    std::vector<Case> cases;
};

Table ReadCases(const std::filesystem::path& path) {
    Table table;
    for (const Row& row : ReadTable(path)) {
        const std::vector<double>& n = row.numbers;
        if (row.kind == 'P') {
            table.x.push_back(n.at(0));
            table.y.push_back(n.at(1));
        } else if (row.kind == 'M') {
            table.cases.push_back(
                {{static_cast<std::int32_t>(n.at(0)), static_cast<std::int32_t>(n.at(1)),
                  static_cast<std::int32_t>(n.at(2)), n.at(3), n.at(4)},
                 {},
                 {},
                 {}});
        } else {
            table.cases.back().t.push_back(n.at(0));
            table.cases.back().values.push_back(n.at(1));
            table.cases.back().sizes.push_back(n.at(2));
        }
    }
    return table;
}

double Tolerance(double value, double size) {
    return std::max(1e-12 * std::fabs(value), size > 100.0 * std::fabs(value) ? 1e-14 * size : 0.0);
}

std::string NameOf(const std::string& table, const ApproxParameters& p) {
    return table + " method " + std::to_string(p.approx) + " (" + std::to_string(p.approx_val) +
           ", " + std::to_string(p.approx_val2) + ", " + FormatShortest(p.beta1) + ", " +
           FormatShortest(p.beta2) + ")";
}

void ExpectCase(const Table& table, const Case& one, const std::string& name) {
    Approximation approximation = SetUpApproximation(table.x, table.y, one.parameters);
    ASSERT_FALSE(approximation.failure) << name;
    std::vector<double> values(one.t.size());
    EvaluateApproximation(approximation, one.t, values);
    for (std::size_t i = 0; i < values.size(); ++i) {
        const double tolerance = Tolerance(one.values[i], one.sizes[i]);
        const double error = std::fabs(values[i] - one.values[i]);
        EXPECT_LE(error, tolerance)
            << name << " at " << FormatGeneral17(one.t[i]) << ": " << FormatGeneral17(values[i])
            << ", not " << FormatGeneral17(one.values[i]) << ", size " << one.sizes[i];
    }
}

TEST(Approximation, AgreesWithTheReferenceTables) {
    int tables = 0;
    for (const auto& file : std::filesystem::directory_iterator(KALVEX_INTERP_DATA)) {
        const std::string name = file.path().stem().string();
        const Table table = ReadCases(file.path());
        ++tables;
        for (const Case& one : table.cases)
            ExpectCase(table, one, NameOf(name, one.parameters));
    }
    EXPECT_EQ(tables, 15);
}

}  // namespace
}  // namespace kalvex
