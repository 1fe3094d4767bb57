// The instrumented demonstration workload.
#include "cli/demo_workload.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numeric>
#include <random>
#include <sstream>
#include <string>
#include <unordered_map>
#include <vector>

#include "tempogauge/collect.h"

namespace tg::cli {
namespace {

const std::string kGrouping(kDemoGrouping);

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

double residual(const Matrix& a, std::size_t n, const std::vector<double>& x, const std::vector<double>& b) {
  double worst = 0.0;
  for (std::size_t i = 0; i < n; ++i) {
    double sum = 0.0;
    for (std::size_t j = 0; j < n; ++j) sum += a[i * n + j] * x[j];
    worst = std::max(worst, std::abs(sum - b[i]));
  }
  return worst;
}

void solverStage(int stage, DemoVariant variant, std::mt19937_64& rng) {
  const std::string prefix = "stage " + std::to_string(stage) + "/";
  // The changed variant solves a larger system in stage 3.
  const std::size_t n = (variant == DemoVariant::Changed && stage == 3) ? 380 : 260;
  Phase whole("solver stage " + std::to_string(stage));
  Matrix a, lu;
  {
    Phase p(prefix + "assemble matrix");
    a = assemble(n, rng);
  }
  {
    Phase p(prefix + "factorize");
    lu = a;
    factorize(lu, n);
  }
  std::vector<double> b(n, 1.0), x;
  {
    Phase p(prefix + "solve");
    x = solve(lu, n, b);
  }
  if (variant == DemoVariant::Changed && stage == 5) {
    Phase p(prefix + "refine solution");
    for (int round = 0; round < 3; ++round) {
      std::vector<double> r(n);
      for (std::size_t i = 0; i < n; ++i) {
        double sum = 0.0;
        for (std::size_t j = 0; j < n; ++j) sum += a[i * n + j] * x[j];
        r[i] = b[i] - sum;
      }
      const std::vector<double> dx = solve(lu, n, r);
      for (std::size_t i = 0; i < n; ++i) x[i] += dx[i];
    }
  }
  {
    Phase p(prefix + "check residual");
    sink = sink + residual(a, n, x, b);
  }
}

std::vector<std::string> makeRecords(std::size_t count, std::mt19937_64& rng) {
  std::vector<std::string> records;
  records.reserve(count);
  for (std::size_t i = 0; i < count; ++i) records.push_back("record-" + std::to_string(rng() % 1000000007ULL));
  return records;
}

void dataStages(DemoVariant variant, std::mt19937_64& rng) {
  std::vector<std::string> records;
  {
    Phase p("generate records");
    records = makeRecords(200000, rng);
  }
  {
    Phase p("sort records");
    if (variant == DemoVariant::Changed)
      std::stable_sort(records.begin(), records.end(), [](const std::string& l, const std::string& r) {
        return std::lexicographical_compare(l.rbegin(), l.rend(), r.rbegin(), r.rend());
      });
    else
      std::sort(records.begin(), records.end());
  }
  std::unordered_map<std::string, std::size_t> index;
  {
    Phase p("build index");
    if (variant == DemoVariant::Baseline) index.reserve(records.size());
    for (std::size_t i = 0; i < records.size(); ++i) index.emplace(records[i], i);
  }
  std::vector<std::uint64_t> cache;
  {
    Phase p("hash records");
    // The changed variant keeps a large cache of hashes alive.
    cache.resize(variant == DemoVariant::Changed ? 4'000'000 : 200'000);
    std::uint64_t h = 1469598103934665603ULL;
    for (std::size_t i = 0; i < cache.size(); ++i) {
      const std::string& r = records[i % records.size()];
      for (const char c : r) h = (h ^ static_cast<unsigned char>(c)) * 1099511628211ULL;
      cache[i] = h;
    }
    sink = sink + static_cast<double>(cache.back() % 1000);
  }
  {
    Phase p("sieve primes");
    std::vector<bool> composite(12'000'000, false);
    std::size_t count = 0;
    for (std::size_t i = 2; i < composite.size(); ++i) {
      if (composite[i]) continue;
      ++count;
      for (std::size_t j = i * i; j < composite.size(); j += i) composite[j] = true;
    }
    sink = sink + static_cast<double>(count);
  }
  {
    Phase p("render summary");
    std::ostringstream text;
    for (std::size_t i = 0; i < records.size(); i += 7) text << records[i] << ':' << index[records[i]] << '\n';
    sink = sink + static_cast<double>(text.str().size());
  }
  {
    // Freeing large containers takes time of its own.
    Phase p("release data");
    std::unordered_map<std::string, std::size_t>().swap(index);
    std::vector<std::uint64_t>().swap(cache);
    std::vector<std::string>().swap(records);
  }
}

void modelStages(std::mt19937_64& rng) {
  const char* blocks[] = {"update integrator", "update gain", "update filter", "update output"};
  for (int step = 0; step < 3; ++step) {
    for (const char* block : blocks) {
      ModelPhase p("engine_model", "sim_target", block);
      std::vector<double> signal(400000);
      std::generate(signal.begin(), signal.end(), [&] { return static_cast<double>(rng() % 1000) / 1000.0; });
      double state = 0.0;
      for (const double v : signal) state = 0.99 * state + 0.01 * std::sin(v);
      sink = sink + state;
    }
  }
}

}  // namespace

void runDemoWorkload(DemoVariant variant, const std::function<void(std::string_view)>& onStage) {
  std::mt19937_64 rng(20261121);
  Phase run("demo run");
  {
    onStage("load configuration");
    Phase p("load configuration");
    std::ostringstream config;
    for (int i = 0; i < 20000; ++i) config << "option" << i << " = " << (i * 37 % 101) << "\n";
    std::istringstream in(config.str());
    std::unordered_map<std::string, int> options;
    for (std::string key, eq; in >> key >> eq;) in >> options[key];
    sink = sink + options.size();
  }
  for (int timeStep = 1; timeStep <= 3; ++timeStep) {
    onStage("time step " + std::to_string(timeStep));
    Phase p("time step");
    for (int stage = 1; stage <= 6; ++stage) solverStage(stage, variant, rng);
  }
  onStage("data stages");
  dataStages(variant, rng);
  onStage("model blocks");
  modelStages(rng);
}

}  // namespace tg::cli
