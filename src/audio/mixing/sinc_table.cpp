// The kernels' table.
#include "audio/mixing/sinc_kernel.h"

#include <cmath>
#include <numbers>

namespace tamlo::sinc {
namespace {

// Images of tones up to 9/11 of the band stay below -99 dB, and the tones lose nothing.
constexpr double halfway_beta = 9.2;
constexpr double point_beta = 11.0;
constexpr double point_reach = 3.5;  // samples; no more than `around` covers wherever a frame lies

double BesselI0(double x) {
    double sum = 1;
    double term = 1;
    for (int k = 1; term > sum * 1e-17; ++k) {
        term *= x / (2 * k) * x / (2 * k);
        sum += term;
    }
    return sum;
}

// A sinc that is zero at every multiple of `spacing`, in a Kaiser window up to `reach`.
double Kernel(double distance, double spacing, double reach, double beta) {
    const double edge = distance / reach;
    if (std::abs(edge) >= 1) return 0;
    const double angle = std::numbers::pi * distance / spacing;
    const double sinc = angle == 0 ? 1 : std::sin(angle) / angle;
    return sinc * BesselI0(beta * std::sqrt(1 - edge * edge)) / BesselI0(beta);
}

// Scales weights to a sum, so that a constant stays constant at every phase.
template <std::size_t size>
void Scale(const std::array<double, size>& weights, double sum, float* out) {
    double total = 0;
    for (const double weight : weights) total += weight;
    for (std::size_t i = 0; i < size; ++i) out[i] = static_cast<float>(weights[i] * sum / total);
}

void Fill(Row& row, int phase) {
    const double at = static_cast<double>(phase) / phases;
    std::array<double, 2 * around> weights{};
    for (int i = 0; i < around; ++i) {
        weights.at(i) = Kernel(samples_first + i - at, 0.5, point_reach, point_beta);
        weights.at(around + i) = Kernel(points_first + i + 0.5 - at, 0.5, point_reach, point_beta);
    }
    std::array<float, 2 * around> scaled{};
    Scale(weights, 1, scaled.data());
    std::copy_n(scaled.begin(), around, row.samples.begin());
    std::copy_n(scaled.begin() + around, around, row.points.begin());
}

Table MakeTable() {
    Table table;
    for (int phase = 0; phase <= phases; ++phase) Fill(table.rows.at(phase), phase);
    std::array<double, pairs> weights{};
    for (int pair = 0; pair < pairs; ++pair) {
        weights.at(pair) = Kernel(pair + 0.5, 1, pairs, halfway_beta);
    }
    std::array<float, pairs> scaled{};
    Scale(weights, 0.5, scaled.data());
    for (int pair = 0; pair < pairs; ++pair) table.halfway.at(pair).fill(scaled.at(pair));
    return table;
}

}  // namespace

const Table& KernelTable() {
    static const Table table = MakeTable();
    return table;
}

}  // namespace tamlo::sinc
