// SPDX-License-Identifier: BSD-3-Clause
// The instrumented demonstration workload.
//
// Each leaf phase repeats a small unit of real work (a few milliseconds)
// until its time in the variant's plan has passed. So a leaf lasts as long on
// a fast machine as on a slow one, every leaf lasts well over the reports'
// resolution, and the two runs differ by what the plans say rather than by
// the machine's speed or load.
#include "cli/demo_workload.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <random>
#include <sstream>
#include <string>
#include <unordered_map>
#include <vector>

#include "host/clock.h"
#include "tempogauge/collect.h"

namespace tg::cli {
namespace {

const std::string kGrouping(kDemoGrouping);

// What one variant does: seconds of work per leaf (0: the phase is not run),
// the iterations of the time-step loop, and the memory the index holds.
struct Plan {
  int timeSteps;
  double configure, assemble, factorize, solve;
  double generate, sort, index, validate, compress, render, release;
  double modelBlock;
  std::size_t indexMiB;
};

constexpr Plan kBaseline{3, 0.055, 0.055, 0.10, 0.055, 0.08, 0.20, 0.08, 0.08, 0.0, 0.055, 0.055, 0.055, 4};
// factorize 2.5 times as long, sort 0.4 times, validate gone, compress new,
// the index 16 times the memory, one more time step.
constexpr Plan kChanged{4, 0.055, 0.055, 0.25, 0.055, 0.08, 0.08, 0.08, 0.0, 0.10, 0.055, 0.055, 0.055, 64};

const Plan& planOf(DemoVariant variant) { return variant == DemoVariant::Changed ? kChanged : kBaseline; }

constexpr int kSolverStages = 2;
constexpr std::size_t kRecords = 20000;
constexpr std::size_t kSlice = 2000;  // records sorted by one unit of work
static_assert(kRecords % kSlice == 0);
constexpr int kModelSteps = 2;
const char* const kModelBlocks[] = {"update integrator", "update gain", "update filter", "update output"};

// Logs the start of a phase at construction and its end at destruction.
class Phase {
 public:
  explicit Phase(std::string name) : name_(std::move(name)) { tgLogORRERYData(kGrouping, name_, true); }
  ~Phase() { tgLogORRERYData(kGrouping, name_, false); }
  Phase(const Phase&) = delete;
  Phase& operator=(const Phase&) = delete;

 private:
  std::string name_;
};

// The same for a block of a model, logged as a Cogwheel point.
class ModelPhase {
 public:
  ModelPhase(std::string model, std::string target, std::string name)
      : model_(std::move(model)), target_(std::move(target)), name_(std::move(name)) {
    tgLogCogwheelData(kGrouping, model_, target_, name_, true);
  }
  ~ModelPhase() { tgLogCogwheelData(kGrouping, model_, target_, name_, false); }
  ModelPhase(const ModelPhase&) = delete;
  ModelPhase& operator=(const ModelPhase&) = delete;

 private:
  std::string model_, target_, name_;
};

// Keeps results alive so that the compiler cannot drop the work.
volatile double sink = 0.0;

// Repeats `unit` until `seconds` have passed since the call.
template <class Unit>
void workFor(double seconds, Unit&& unit) {
  const double end = huRealtime() + seconds;
  do unit();
  while (huRealtime() < end);
}

// A leaf phase of the plan: skipped when its time is 0.
template <class Unit>
void leaf(const char* name, double seconds, Unit&& unit) {
  if (seconds <= 0.0) return;
  Phase p(name);
  workFor(seconds, unit);
}

// ---- units of work --------------------------------------------------------------

constexpr std::size_t kMatrixSize = 80;  // small units: a leaf overshoots its time by little
using Matrix = std::vector<double>;  // n by n, row-major

Matrix assemble(std::size_t n, std::mt19937_64& rng) {
  std::uniform_real_distribution<double> dist(-1.0, 1.0);
  Matrix a(n * n);
  for (std::size_t i = 0; i < n; ++i) {
    double rowSum = 0.0;
    for (std::size_t j = 0; j < n; ++j) {
      a[i * n + j] = dist(rng);
      rowSum += std::abs(a[i * n + j]);
    }
    a[i * n + i] = rowSum + 1.0;  // diagonally dominant: no pivoting needed
  }
  return a;
}

void factorize(Matrix& a, std::size_t n) {
  for (std::size_t k = 0; k < n; ++k)
    for (std::size_t i = k + 1; i < n; ++i) {
      const double factor = a[i * n + k] / a[k * n + k];
      a[i * n + k] = factor;
      for (std::size_t j = k + 1; j < n; ++j) a[i * n + j] -= factor * a[k * n + j];
    }
}

std::vector<double> solve(const Matrix& lu, std::size_t n, std::vector<double> b) {
  for (std::size_t i = 0; i < n; ++i)
    for (std::size_t j = 0; j < i; ++j) b[i] -= lu[i * n + j] * b[j];
  for (std::size_t i = n; i-- > 0;) {
    for (std::size_t j = i + 1; j < n; ++j) b[i] -= lu[i * n + j] * b[j];
    b[i] /= lu[i * n + i];
  }
  return b;
}

std::uint64_t hashText(const std::string& text, std::uint64_t h = 1469598103934665603ULL) {
  for (const char c : text) h = (h ^ static_cast<unsigned char>(c)) * 1099511628211ULL;
  return h;
}

std::vector<std::string> makeRecords(std::size_t count, std::mt19937_64& rng) {
  std::vector<std::string> records;
  records.reserve(count);
  for (std::size_t i = 0; i < count; ++i) records.push_back("record-" + std::to_string(rng() % 1000000007ULL));
  return records;
}

// ---- stages -----------------------------------------------------------------------

void configure(const Plan& plan) {
  leaf("load configuration", plan.configure, [] {
    std::ostringstream config;
    for (int i = 0; i < 2000; ++i) config << "option" << i << " = " << (i * 37 % 101) << "\n";
    std::istringstream in(config.str());
    std::unordered_map<std::string, int> options;
    for (std::string key, eq; in >> key >> eq;) in >> options[key];
    sink = sink + static_cast<double>(options.size());
  });
}

void solverStage(int stage, const Plan& plan, std::mt19937_64& rng) {
  Phase whole("solver stage " + std::to_string(stage));
  const std::size_t n = kMatrixSize;
  Matrix a, lu;
  leaf("assemble matrix", plan.assemble, [&] { a = assemble(n, rng); });
  leaf("factorize", plan.factorize, [&] {
    lu = a;
    factorize(lu, n);
  });
  leaf("solve", plan.solve, [&] {
    const std::vector<double> x = solve(lu, n, std::vector<double>(n, 1.0));
    sink = sink + x[0];
  });
}

void dataStages(const Plan& plan, std::mt19937_64& rng) {
  Phase whole("data stages");
  std::vector<std::string> records;
  leaf("generate records", plan.generate, [&] { records = makeRecords(kRecords, rng); });
  std::size_t slice = 0;
  leaf("sort records", plan.sort, [&] {
    // One slice of the records at a time.
    const auto from = records.begin() + static_cast<long>(slice++ * kSlice % records.size());
    std::vector<std::string> sorted(from, from + kSlice);
    std::sort(sorted.begin(), sorted.end());
    sink = sink + static_cast<double>(sorted.front().size());
  });
  // The index is kept, filled page by page, until the data are released.
  std::vector<std::uint64_t> index;
  leaf("build index", plan.index, [&] {
    if (index.empty()) {
      const std::size_t entries = plan.indexMiB * (std::size_t{1} << 20) / sizeof(std::uint64_t);
      index.assign(entries, hashText(records.front()));
    }
    sink = sink + static_cast<double>(index[rng() % index.size()] % 7);
  });
  leaf("validate records", plan.validate, [&] {
    std::size_t valid = 0;
    for (const std::string& r : records) valid += r.rfind("record-", 0) == 0;
    sink = sink + static_cast<double>(valid);
  });
  leaf("compress records", plan.compress, [&] {
    // Each record as the length it shares with the one before and the rest.
    std::string packed;
    const std::string* previous = nullptr;
    for (const std::string& r : records) {
      std::size_t shared = 0;
      while (previous && shared < r.size() && shared < previous->size() && r[shared] == (*previous)[shared]) ++shared;
      packed += static_cast<char>(shared);
      packed.append(r, shared);
      previous = &r;
    }
    sink = sink + static_cast<double>(packed.size());
  });
  leaf("render summary", plan.render, [&] {
    std::ostringstream text;
    for (std::size_t i = 0; i < records.size(); i += 7) text << records[i] << ':' << hashText(records[i]) << '\n';
    sink = sink + static_cast<double>(text.str().size());
  });
  leaf("release data", plan.release, [&] {
    std::vector<std::uint64_t>().swap(index);
    std::vector<std::string>().swap(records);
  });
}

void modelStages(const Plan& plan, std::mt19937_64& rng) {
  for (int step = 0; step < kModelSteps; ++step) {
    for (const char* block : kModelBlocks) {
      ModelPhase p("engine_model", "sim_target", block);
      workFor(plan.modelBlock, [&] {
        double state = 0.0;
        for (int i = 0; i < 20000; ++i) state = 0.99 * state + 0.01 * std::sin(static_cast<double>(rng() % 1000));
        sink = sink + state;
      });
    }
  }
}

}  // namespace

int demoStageCount(DemoVariant variant) { return 3 + planOf(variant).timeSteps; }

void runDemoWorkload(DemoVariant variant, const std::function<void(std::string_view)>& onStage) {
  const Plan& plan = planOf(variant);
  std::mt19937_64 rng(20261121);
  Phase run("demo run");
  onStage("load configuration");
  configure(plan);
  for (int timeStep = 1; timeStep <= plan.timeSteps; ++timeStep) {
    onStage("time step " + std::to_string(timeStep));
    Phase p("time step");
    for (int stage = 1; stage <= kSolverStages; ++stage) solverStage(stage, plan, rng);
  }
  onStage("data stages");
  dataStages(plan, rng);
  onStage("model blocks");
  modelStages(plan, rng);
}

}  // namespace tg::cli
