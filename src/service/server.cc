#include "service/server.h"

#include <httplib.h>
#include <sys/socket.h>

#include <algorithm>
#include <atomic>
#include <csignal>
#include <iostream>
#include <string_view>
#include <thread>
#include <utility>

#include "service/page.h"

namespace torvane {
namespace {

constexpr const char* kJson = "application/json";
// Beyond the requests at once, so that those who come then get an answer too.
constexpr std::size_t kSpareThreads = 16;
constexpr int kWaitingConnections = 512;
constexpr int kKeepAliveSeconds = 2;
constexpr int kReadSeconds = 5;
constexpr std::size_t kRequestsOfConnection = 10000;

void put(httplib::Response& response, const Answer& answer) {
  response.status = answer.status;
  response.set_content(answer.body, kJson);
}

/// The requests that are being answered.
class AtOnce {
 public:
  AtOnce(std::atomic<std::size_t>& count, std::size_t most)
      : count_(count), fits_(++count <= most) {}
  ~AtOnce() { --count_; }
  AtOnce(const AtOnce&) = delete;
  AtOnce& operator=(const AtOnce&) = delete;
  bool fits() const { return fits_; }

 private:
  std::atomic<std::size_t>& count_;
  const bool fits_;
};

/// What clients are told where no function answered.
std::string_view meaning_of(int status) {
  switch (status) {
    case 400:
      return "the request cannot be read";
    case 404:
      return "there is nothing here";
    case 413:
      return "the body is too large";
    case 414:
      return "the address is too long";
    default:
      return "the request failed";
  }
}

class Service {
 public:
  explicit Service(const ServiceChoice& choice, std::size_t threads)
      : limits_(choice.limits), api_(choice.grammar, threads, choice.limits) {
    server_.new_task_queue = [this] {
      return new httplib::ThreadPool(limits_.at_once + kSpareThreads);
    };
    server_.set_payload_max_length(limits_.bytes);
    server_.set_keep_alive_timeout(kKeepAliveSeconds);
    server_.set_keep_alive_max_count(kRequestsOfConnection);
    server_.set_read_timeout(kReadSeconds);
    server_.set_tcp_nodelay(true);
    server_.set_socket_options([this](socket_t socket) {
      const int yes = 1;
      setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
      socket_ = socket;
    });
    server_.set_default_headers({{"X-Content-Type-Options", "nosniff"},
                                 {"Content-Security-Policy",
                                  "default-src 'none'; style-src 'unsafe-inline'; script-src "
                                  "'unsafe-inline'; connect-src 'self'; img-src blob: data:"}});
    server_.set_error_handler([](const httplib::Request&, httplib::Response& response) {
      if (response.body.empty())
        put(response, refusal(response.status, meaning_of(response.status)));
    });
    server_.Get("/", [](const httplib::Request&, httplib::Response& response) {
      const std::string_view page = service_page();
      response.set_content(page.data(), page.size(), "text/html; charset=utf-8");
    });
    server_.Get("/health", [this](const httplib::Request&, httplib::Response& response) {
      put(response, api_.health());
    });
    answer("/parse", &Api::parse);
    answer("/why", &Api::why);
  }

  std::string fault() { return api_.fault(); }
  /// The port; -1 if it cannot be had.
  int bind(const std::string& host, int port) {
    if (port == 0) {
      port = server_.bind_to_any_port(host);
    } else if (!server_.bind_to_port(host, port)) {
      port = -1;
    }
    // Many come at once; the library's own queue is short.
    if (port > 0) ::listen(socket_, kWaitingConnections);
    return port;
  }
  bool serve() { return server_.listen_after_bind(); }
  void stop() { server_.stop(); }

 private:
  void answer(const char* path, Answer (Api::*function)(std::string_view)) {
    server_.Post(path,
                 [this, function](const httplib::Request& request, httplib::Response& response) {
                   const AtOnce here(requests_, limits_.at_once);
                   if (here.fits()) return put(response, (api_.*function)(request.body));
                   response.set_header("Retry-After", "1");
                   put(response, refusal(503, "too many requests at once"));
                 });
    server_.Get(path, [](const httplib::Request&, httplib::Response& response) {
      response.set_header("Allow", "POST");
      put(response, refusal(405, "send the request by POST"));
    });
  }

  const RequestLimits limits_;
  Api api_;
  httplib::Server server_;
  socket_t socket_ = INVALID_SOCKET;
  std::atomic<std::size_t> requests_{0};
};

}  // namespace

int run_service(const ServiceChoice& choice) {
  // All threads leave these signals to the one that waits for them.
  sigset_t ends;
  sigemptyset(&ends);
  for (int number : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&ends, number);
  pthread_sigmask(SIG_BLOCK, &ends, nullptr);
  std::signal(SIGPIPE, SIG_IGN);

  const std::size_t cores = std::max(1U, std::thread::hardware_concurrency());
  Service service(choice, choice.threads > 0 ? choice.threads : cores);
  if (const std::string fault = service.fault(); !fault.empty()) {
    std::cerr << "torvane: " << fault << '\n';
    return 4;
  }
  const int port = service.bind(choice.host, choice.port);
  if (port <= 0) {
    std::cerr << "torvane: cannot listen on " << choice.host << " port " << choice.port << '\n';
    return 1;
  }
  const bool is_v6 = choice.host.find(':') != std::string::npos;
  std::cout << "http://" << (is_v6 ? "[" + choice.host + "]" : choice.host) << ':' << port << "/"
            << std::endl;
  std::thread waiter([&] {
    int number = 0;
    sigwait(&ends, &number);
    service.stop();
  });
  const bool went_well = service.serve();
  pthread_kill(waiter.native_handle(), SIGHUP);
  waiter.join();
  return went_well ? 0 : 1;
}

}  // namespace torvane
