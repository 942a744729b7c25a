// The processes, what they tell through a pipe each, and their ends.
#include "host/tool/processes.hpp"

#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <iostream>
#include <vector>

#include "host/runtime/exception.hpp"
#include "host/tool/files.hpp"

namespace tool {
namespace {

// Signals that end a process are held back while one of these lives, and let through only where it waits.
class HeldSignals {
 public:
  HeldSignals() {
    caught_ = 0;
    sigset_t held;
    sigemptyset(&held);
    struct sigaction noting {};
    noting.sa_handler = [](int signal) { caught_ = signal; };
    for (size_t index = 0; index < std::size(signals); ++index) {
      sigaddset(&held, signals[index]);
      sigaction(signals[index], &noting, &actions_[index]);
    }
    sigprocmask(SIG_BLOCK, &held, &mask_);
  }
  HeldSignals(const HeldSignals&) = delete;
  ~HeldSignals() { letGo(); }

  void letGo() const {
    for (size_t index = 0; index < std::size(signals); ++index) sigaction(signals[index], &actions_[index], nullptr);
    sigprocmask(SIG_SETMASK, &mask_, nullptr);
  }
  void wait(std::vector<pollfd>& descriptors) const { ppoll(descriptors.data(), descriptors.size(), nullptr, &mask_); }
  int caught() const { return caught_; }

 private:
  static constexpr int signals[] = {SIGINT, SIGTERM, SIGHUP};
  static inline volatile std::sig_atomic_t caught_ = 0;
  struct sigaction actions_[std::size(signals)]{};
  sigset_t mask_{};
};

// What a piece's process tells: "p12\n" for a page, and "e" with the text of an error until its end.
constexpr char pageMark = 'p', errorMark = 'e';

void send(int pipe, const std::string& text) {
  if (write(pipe, text.data(), text.size()) < 0) std::cerr << systemMessage(errno) << '\n';
}

std::string failureOf(const Work& work, size_t index, int pipe) {
  try {
    work.run(index, [pipe](int page) { send(pipe, pageMark + std::to_string(page) + "\n"); });
    return "";
  } catch (const DocumentError& error) {
    return errorMark + error.message;
  } catch (const host::HostException& exception) {
    return errorMark + exception.message();
  } catch (const std::bad_alloc&) {
    return errorMark + std::string("there is not enough memory for it");
  } catch (const std::exception& error) {
    return errorMark + std::string(error.what());
  }
}

struct Process {
  pid_t id;
  int pipe;
  size_t index;
  std::string told;

  // False when it has ended.
  bool listen(const Work& work) {
    char buffer[4096];
    const ssize_t count = read(pipe, buffer, sizeof(buffer));
    if (count < 0 && errno == EINTR) return true;
    if (count > 0) told.append(buffer, static_cast<size_t>(count));
    for (size_t end; told.starts_with(pageMark) && (end = told.find('\n')) != std::string::npos; told.erase(0, end + 1)) {
      if (work.pageDone) work.pageDone(std::atoi(told.c_str() + 1));
    }
    return count > 0;
  }

  int end() const {
    int status = 0;
    close(pipe);
    while (waitpid(id, &status, 0) < 0 && errno == EINTR) {
    }
    return status;
  }

  std::optional<std::string> outcome(int status) const {
    if (WIFSIGNALED(status)) {
      return "the process that worked on it was ended (" + std::string(strsignal(WTERMSIG(status))) +
             "); please report this with the document";
    }
    if (told.starts_with(errorMark)) return told.substr(1);
    if (status != 0) return "the process that worked on it failed";
    return std::nullopt;
  }
};

class Pool {
 public:
  explicit Pool(const Work& work) : work_(work) {}

  int run() {
    while (signals_.caught() == 0 && (next_ < work_.count || !running_.empty())) {
      while (next_ < work_.count && running_.size() < work_.jobs) start(next_++);
      if (!running_.empty()) listen();
    }
    for (const Process& process : running_) kill(process.id, SIGTERM);
    for (const Process& process : running_) process.end();
    return signals_.caught();
  }

 private:
  void start(size_t index) {
    try {
      if (work_.prepare) work_.prepare(index);
      startProcess(index);
    } catch (const DocumentError& error) {
      work_.done(index, error.message);
    }
  }

  void startProcess(size_t index) {
    int ends[2];
    if (pipe(ends) != 0) throw DocumentError{"no process can be started for it: " + systemMessage(errno)};
    std::cout.flush();
    const pid_t id = fork();
    if (id == 0) {
      signals_.letGo();
      close(ends[0]);
      const std::string failure = failureOf(work_, index, ends[1]);
      if (!failure.empty()) send(ends[1], failure);
      _exit(failure.empty() ? 0 : 1);
    }
    const int error = errno;
    close(ends[1]);
    if (id > 0) return running_.push_back({id, ends[0], index, ""});
    close(ends[0]);
    throw DocumentError{"no process can be started for it: " + systemMessage(error)};
  }

  void listen() {
    std::vector<pollfd> descriptors;
    for (const Process& process : running_) descriptors.push_back({process.pipe, POLLIN, 0});
    signals_.wait(descriptors);
    for (size_t index = descriptors.size(); index-- > 0;) {
      if (descriptors[index].revents == 0 || running_[index].listen(work_)) continue;
      const Process ended = std::move(running_[index]);
      running_.erase(running_.begin() + static_cast<ptrdiff_t>(index));
      work_.done(ended.index, ended.outcome(ended.end()));
    }
  }

  const Work& work_;
  const HeldSignals signals_;
  size_t next_ = 0;
  std::vector<Process> running_;
};

}  // namespace

int runInProcesses(const Work& work) { return Pool(work).run(); }

void endBySignal(int signal) {
  std::signal(signal, SIG_DFL);
  std::raise(signal);
}

}  // namespace tool
