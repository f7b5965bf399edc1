#include "platform/media/child_process.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <thread>

#include "base/error.h"

namespace platform::media {
namespace {

constexpr const char* limiter = "/usr/bin/prlimit";

class Descriptor {
 public:
  explicit Descriptor(int fd = -1) : fd_(fd) {}
  ~Descriptor() { close(); }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  int get() const { return fd_; }
  void set(int fd) { fd_ = fd; }
  void close() {
    if (fd_ >= 0) ::close(fd_);
    fd_ = -1;
  }

 private:
  int fd_;
};

struct Pipe {
  Descriptor read, write;
  Pipe() {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) throw base::Error(51, "No pipe to a child process.");
    read.set(ends[0]);
    write.set(ends[1]);
  }
};

class TemporaryFolder {
 public:
  TemporaryFolder() {
    path_ = (std::filesystem::temp_directory_path() / "vocarium-media-XXXXXX").string();
    if (mkdtemp(path_.data()) == nullptr) throw base::Error(70, "No temporary folder can be made: " + path_);
  }
  ~TemporaryFolder() {
    std::error_code left;  // what can not be removed stays for the system's own sweep
    std::filesystem::remove_all(path_, left);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  const std::string& path() const { return path_; }

 private:
  std::string path_;
};

std::vector<char*> pointers(std::vector<std::string>& texts) {
  std::vector<char*> result;
  for (std::string& text : texts) result.push_back(text.data());
  result.push_back(nullptr);
  return result;
}

pid_t spawn(std::vector<std::string> arguments, std::vector<std::string> environment, int input, int output,
            int errors) {
  posix_spawn_file_actions_t actions;
  posix_spawnattr_t attributes;
  posix_spawn_file_actions_init(&actions);
  posix_spawnattr_init(&attributes);
  posix_spawn_file_actions_adddup2(&actions, input, 0);
  posix_spawn_file_actions_adddup2(&actions, output, 1);
  posix_spawn_file_actions_adddup2(&actions, errors, 2);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP);
  pid_t pid = -1;
  const int failure = posix_spawn(&pid, arguments.front().c_str(), &actions, &attributes,
                                  pointers(arguments).data(), pointers(environment).data());
  posix_spawnattr_destroy(&attributes);
  posix_spawn_file_actions_destroy(&actions);
  if (failure != 0) throw base::Error(53, "The program " + arguments.front() + " can not be started.");
  return pid;
}

/// Takes what stands in the pipe; closes it at its end.
void drain(Descriptor& pipe, std::string& into) {
  std::array<char, 65536> buffer;
  const ssize_t count = read(pipe.get(), buffer.data(), buffer.size());
  if (count > 0)
    into.append(buffer.data(), static_cast<std::size_t>(count));
  else if (count == 0 || (errno != EINTR && errno != EAGAIN))
    pipe.close();
}

using Clock = std::chrono::steady_clock;

/// Reads both pipes until the child closes them, or a limit is reached (false).
bool collect(Descriptor& output, Descriptor& errors, ChildResult& result, std::size_t mostOutput,
             Clock::time_point end) {
  while (output.get() >= 0 || errors.get() >= 0) {
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now()).count();
    if (left <= 0 || result.output.size() > mostOutput) return false;
    std::array<pollfd, 2> ready{{{output.get(), POLLIN, 0}, {errors.get(), POLLIN, 0}}};
    if (poll(ready.data(), ready.size(), static_cast<int>(left)) <= 0) continue;
    if (ready[0].revents != 0) drain(output, result.output);
    if (ready[1].revents != 0) drain(errors, result.errors);
    if (result.errors.size() > 65536) result.errors.resize(65536);
  }
  return true;
}

/// Whether the child ends in time; it stays to be reaped, so that its number is not given away.
bool endsUntil(pid_t pid, Clock::time_point end) {
  siginfo_t info{};
  while (waitid(P_PID, static_cast<id_t>(pid), &info, WEXITED | WNOWAIT | WNOHANG) == 0 && info.si_pid == 0) {
    if (Clock::now() > end) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  return true;
}

int reap(pid_t pid) {
  int status = 0;
  while (waitpid(pid, &status, 0) < 0) {
    if (errno != EINTR) return -1;
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace

ChildResult runChild(const std::vector<std::string>& arguments, const std::string& inputFile,
                     const ChildLimits& limits) {
  if (access(arguments.front().c_str(), X_OK) != 0)
    throw base::Error(53, "The program " + arguments.front() + " is not installed.");
  const Descriptor input(open(inputFile.c_str(), O_RDONLY | O_CLOEXEC));
  if (input.get() < 0)
    throw base::Error(errno == ENOENT ? 53 : 70, "The file " + inputFile + " can not be read.");

  // A spawned process takes its limits over from a small system program, since none can be set between.
  std::vector<std::string> line{limiter, "--as=" + std::to_string(limits.addressSpace),
                                "--cpu=" + std::to_string(limits.seconds), "--core=0", "--"};
  line.insert(line.end(), arguments.begin(), arguments.end());
  const TemporaryFolder folder;
  const std::vector<std::string> environment{
      "PATH=/usr/bin:/bin",    "LC_ALL=C",
      "HOME=" + folder.path(), "TMPDIR=" + folder.path(),
      "TEMP=" + folder.path(), "MAGICK_TEMPORARY_PATH=" + folder.path(),
      "MAGICK_THREAD_LIMIT=1", "OMP_NUM_THREADS=1"};

  Pipe output, errors;
  const pid_t pid = spawn(line, environment, input.get(), output.write.get(), errors.write.get());
  output.write.close();
  errors.write.close();
  ChildResult result;
  const auto end = Clock::now() + std::chrono::seconds(limits.seconds);
  result.stopped = !collect(output.read, errors.read, result, limits.output, end) || !endsUntil(pid, end);
  kill(-pid, SIGKILL);  // the group: nothing that it started stays
  result.exitCode = reap(pid);
  return result;
}

}  // namespace platform::media
