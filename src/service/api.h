// What the service answers: JSON in, JSON out. docs/service.md describes it.
#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>

#include "service/engine_pool.h"

namespace torvane {

/// What one request may ask for.
struct RequestLimits {
  std::size_t bytes = std::size_t{1} << 20;
  std::size_t words = 20000;
  std::size_t seconds = 30;
  std::size_t at_once = 256;  ///< requests
};

struct Answer {
  int status = 200;  ///< of HTTP
  std::string body;  ///< an object
};
/// With an `error`.
Answer refusal(int status, std::string_view error);

class Api {
 public:
  Api(const GrammarChoice& choice, std::size_t threads, const RequestLimits& limits);

  /// Why the grammar does not load, or empty.
  std::string fault();
  Answer parse(std::string_view request);
  /// Why a word is not under another one.
  Answer why(std::string_view request);
  Answer health() const;

 private:
  struct ParseRequest;

  /// The engines of a style; loads them when it is first asked for. Null, and why, if it cannot be
  /// had.
  EnginePool* pool(const std::string& style, std::string& fault);
  Answer parse_tasks(const ParseRequest& request);
  Answer too_late() const;

  const GrammarChoice choice_;
  const std::size_t threads_;
  const RequestLimits limits_;
  std::mutex mutex_;
  std::map<std::string, std::unique_ptr<EnginePool>> pools_;  // by style
};

}  // namespace torvane
