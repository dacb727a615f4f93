#include "cli/workers.h"

#include <unistd.h>

#include <utility>

#include "support/depth.h"

namespace torvane {

Workers::Workers(std::size_t count, std::function<void(Workers&)> work) : work_(std::move(work)) {
  auto start = [](void* self) -> void* {
    auto& workers = *static_cast<Workers*>(self);
    workers.work_(workers);
    return nullptr;
  };
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  pthread_attr_setstacksize(&attributes, kLargeStack);
  const std::lock_guard lock(mutex_);
  for (std::size_t i = 0; i < count; ++i) {
    pthread_t thread;
    if (pthread_create(&thread, &attributes, start, this) != 0) break;
    threads_.push_back(thread);
    ++able_;
  }
  pthread_attr_destroy(&attributes);
}

Workers::~Workers() {
  {
    const std::lock_guard lock(mutex_);
    ended_ = true;
  }
  more_.notify_all();
  for (pthread_t thread : threads_) pthread_join(thread, nullptr);
}

Job* Workers::take() {
  std::unique_lock lock(mutex_);
  more_.wait(lock, [this] { return ended_ || !todo_.empty(); });
  if (ended_) return nullptr;
  Job* job = todo_.front();
  todo_.pop_front();
  return job;
}

void Workers::give_back(Job& job) {
  end(job, Job::State::done);
}

void Workers::fail(Job& job) {
  end(job, Job::State::failed);
  while (true) pause();
}

// Only the oldest one is waited for.
void Workers::end(Job& job, Job::State state) {
  bool is_oldest;
  {
    const std::lock_guard lock(mutex_);
    job.state = state;
    is_oldest = &job == jobs_.front().get();
  }
  if (is_oldest) less_.notify_one();
}

void Workers::resign() {
  {
    const std::lock_guard lock(mutex_);
    --able_;
  }
  less_.notify_all();
}

void Workers::add(Task&& task) {
  {
    const std::lock_guard lock(mutex_);
    jobs_.push_back(std::make_unique<Job>());
    jobs_.back()->task = std::move(task);
    todo_.push_back(jobs_.back().get());
  }
  more_.notify_one();
}

std::unique_ptr<Job> Workers::finished() {
  std::unique_lock lock(mutex_);
  less_.wait(lock, [this] { return jobs_.front()->state != Job::State::open || able_ == 0; });
  std::unique_ptr<Job> job = std::move(jobs_.front());
  jobs_.pop_front();
  return job;
}

}  // namespace torvane
