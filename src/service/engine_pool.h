// Engines that take turns at short pieces of work: of a long text a sentence at a time, so that
// nobody waits until all of it is parsed.
#pragma once

#include <pthread.h>

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <sstream>
#include <string>
#include <vector>

#include "engine/engine.h"
#include "engine/grammar_files.h"

namespace torvane {

class EnginePool {
 public:
  using Clock = std::chrono::steady_clock;
  using Work = std::function<void(Engine&)>;

  /// Loads the grammar once in each of so many threads.
  EnginePool(const GrammarChoice& choice, std::size_t threads);
  /// Waits for the work in hand.
  ~EnginePool();
  EnginePool(const EnginePool&) = delete;
  EnginePool& operator=(const EnginePool&) = delete;

  /// Why the grammar does not load, or empty.
  std::string fault();
  /// Runs the work in one of the threads, behind what others asked for before. False if it could
  /// not begin in time: then it does not run.
  bool run(const Work& work, Clock::time_point latest);

 private:
  struct Turn {
    const Work* work;
    enum class State { waits, runs, ended } state = State::waits;
    std::condition_variable over;
  };

  void serve();

  const GrammarChoice choice_;
  std::mutex mutex_;
  std::condition_variable more_, loaded_;
  std::deque<Turn*> turns_;
  std::size_t loading_ = 0;
  std::string fault_;
  bool ended_ = false;
  std::vector<pthread_t> threads_;
};

}  // namespace torvane
