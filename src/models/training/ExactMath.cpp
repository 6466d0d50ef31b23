#include "models/training/ExactMath.h"

#include <algorithm>
#include <cmath>

namespace brindlet::training {
namespace {

constexpr double ln2 = 0.693147180559945309417;

}  // namespace

double exactExp(double x) {
    if (x < -700) return 0;
    const double power = std::floor(std::min(x, 700.0) / ln2 + 0.5);
    const double rest = std::min(x, 700.0) - power * ln2;
    // Taylor's series; the rest is below 0.35, so sixteen terms reach the last bit.
    double term = 1;
    double sum = 1;
    for (int n = 1; n <= 16; ++n) {
        term *= rest / n;
        sum += term;
    }
    return std::ldexp(sum, static_cast<int>(power));
}

double exactLog(double x) {
    int power = 0;
    const double mantissa = std::frexp(x, &power);  // from 0.5 up to 1
    // ln m = 2 artanh((m - 1) / (m + 1)), its argument within a third of 0.
    const double ratio = (mantissa - 1) / (mantissa + 1);
    double odd = ratio;
    double sum = 0;
    for (int n = 1; n <= 27; n += 2) {
        sum += odd / n;
        odd *= ratio * ratio;
    }
    return 2 * sum + power * ln2;
}

}  // namespace brindlet::training
