// Several engines at work on one row of tasks; what they give comes in the order of the tasks.
#pragma once

#include <pthread.h>

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "cli/summary.h"
#include "sources/sources.h"

namespace torvane {

/// A task and what became of it.
struct Job {
  Task task;
  Outcome outcome = Outcome::whole;
  std::string written;
  std::size_t words = 0;
  enum class State { open, done, failed } state = State::open;
};

class Workers {
 public:
  /// `work` runs in each thread until it returns: it takes jobs by `take` and gives them back.
  Workers(std::size_t count, std::function<void(Workers&)> work);
  /// Waits for the threads.
  ~Workers();
  Workers(const Workers&) = delete;
  Workers& operator=(const Workers&) = delete;

  // In the threads.
  /// The next job; null at the end.
  Job* take();
  void give_back(Job& job);
  /// The same of a job that ends the process: the thread does not come back.
  [[noreturn]] void fail(Job& job);
  /// For a thread that cannot work.
  void resign();

  // Outside.
  void add(Task&& task);
  std::size_t waiting() const { return jobs_.size(); }
  /// The oldest job, once it is done or has failed; or as it was, when no thread can work.
  std::unique_ptr<Job> finished();

 private:
  void end(Job& job, Job::State state);

  std::function<void(Workers&)> work_;
  std::vector<pthread_t> threads_;
  std::size_t able_ = 0;
  std::mutex mutex_;
  std::condition_variable more_, less_;
  std::deque<std::unique_ptr<Job>> jobs_;  // in order
  std::deque<Job*> todo_;
  bool ended_ = false;
};

}  // namespace torvane
