#include "service/engine_pool.h"

#include <algorithm>

#include "support/depth.h"

namespace torvane {
namespace {

// A grammar can run `exit`, but does not end the service.
Value refuse_exit(World& world, IRSlist*) {
  world.err() << "exit: the grammar asks for the end of the program\n";
  return Value();
}

}  // namespace

EnginePool::EnginePool(const GrammarChoice& choice, std::size_t threads) : choice_(choice) {
  auto start = [](void* self) -> void* {
    static_cast<EnginePool*>(self)->serve();
    return nullptr;
  };
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  pthread_attr_setstacksize(&attributes, kLargeStack);
  const std::lock_guard lock(mutex_);
  for (std::size_t i = 0; i < threads; ++i) {
    pthread_t thread;
    if (pthread_create(&thread, &attributes, start, this) != 0) break;
    threads_.push_back(thread);
    ++loading_;
  }
  pthread_attr_destroy(&attributes);
  if (threads_.empty()) fault_ = "no thread can be had";
}

EnginePool::~EnginePool() {
  {
    const std::lock_guard lock(mutex_);
    ended_ = true;
  }
  more_.notify_all();
  for (pthread_t thread : threads_) pthread_join(thread, nullptr);
}

std::string EnginePool::fault() {
  std::unique_lock lock(mutex_);
  loaded_.wait(lock, [this] { return loading_ == 0; });
  return fault_;
}

void EnginePool::serve() {
  std::istringstream nothing;
  std::ostringstream says;  // what a grammar prints is for those who write it
  Engine engine(World::Console{&nothing, &says, &says});
  engine.max_words = choice_.max_words;
  engine.keep_forms();  // for explanations
  engine.world().interpreter.redefine("exit", refuse_exit, nullptr);
  const GrammarFiles files = find_grammar(choice_);
  std::string fault = files.fault;
  if (fault.empty()) fault = engine.load(files.files, files.folders);

  std::unique_lock lock(mutex_);
  --loading_;
  if (!fault.empty()) fault_ = fault;
  loaded_.notify_all();
  while (true) {
    more_.wait(lock, [this] { return ended_ || !turns_.empty(); });
    if (turns_.empty()) return;
    Turn& turn = *turns_.front();
    turns_.pop_front();
    turn.state = Turn::State::runs;
    lock.unlock();
    (*turn.work)(engine);
    says.str({});
    lock.lock();
    turn.state = Turn::State::ended;
    turn.over.notify_one();
  }
}

bool EnginePool::run(const Work& work, Clock::time_point latest) {
  Turn turn{&work, Turn::State::waits, {}};
  std::unique_lock lock(mutex_);
  turns_.push_back(&turn);
  more_.notify_one();
  if (!turn.over.wait_until(lock, latest, [&] { return turn.state != Turn::State::waits; }) &&
      turn.state == Turn::State::waits) {
    turns_.erase(std::find(turns_.begin(), turns_.end(), &turn));
    return false;
  }
  turn.over.wait(lock, [&] { return turn.state == Turn::State::ended; });
  return true;
}

}  // namespace torvane
