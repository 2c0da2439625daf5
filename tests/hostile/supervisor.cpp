// SPDX-License-Identifier: GPL-2.0-or-later
// A filter stops the child at the calls that matter; the parent reads their arguments.
#include "tests/hostile/supervisor.h"

#include <fcntl.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sched.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/un.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <filesystem>
#include <stdexcept>
#include <utility>

#include "tests/hosts/tempfolder.h"

namespace brelmon::hostile {
namespace {

constexpr unsigned kSeconds = 20;

/// Calls that change the world or bring in code; the places of their paths follow below.
constexpr long kCalls[] = {
    SYS_socket,   SYS_connect, SYS_execve, SYS_execveat,  SYS_openat,   SYS_renameat, SYS_renameat2,
    SYS_unlinkat, SYS_mkdirat, SYS_linkat, SYS_symlinkat, SYS_truncate,
#ifdef SYS_open
    SYS_open,     SYS_creat,   SYS_rename, SYS_unlink,    SYS_mkdir,    SYS_link,     SYS_symlink,
#endif
};

#ifdef __x86_64__
/// In place of the call, which is not made.
void Return(pid_t process, long value) {
  user_regs_struct registers{};
  ::ptrace(PTRACE_GETREGS, process, nullptr, &registers);
  registers.orig_rax = static_cast<unsigned long long>(-1);
  registers.rax = static_cast<unsigned long long>(value);
  ::ptrace(PTRACE_SETREGS, process, nullptr, &registers);
}
void AskForHalf(pid_t process) {
  user_regs_struct registers{};
  ::ptrace(PTRACE_GETREGS, process, nullptr, &registers);
  registers.rdx = (registers.rdx + 1) / 2;
  ::ptrace(PTRACE_SETREGS, process, nullptr, &registers);
}
#else
void Return(pid_t, long) {}
void AskForHalf(pid_t) {}
#endif

void InstallFilter(const Fault* fault) {
  std::vector<sock_filter> program{BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr))};
  for (const long call : kCalls) {
    program.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<__u32>(call), 0, 1));
    program.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_TRACE));
  }
  if (fault != nullptr) {
    program.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<__u32>(fault->call), 0, 1));
    program.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_TRACE));
  }
  // Of what is mapped only code matters.
  program.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_mmap, 0, 3));
  program.push_back(BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, args[2])));
  program.push_back(BPF_JUMP(BPF_JMP | BPF_JSET | BPF_K, PROT_EXEC, 0, 1));
  program.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_TRACE));
  program.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW));
  const sock_fprog filter{static_cast<unsigned short>(program.size()), program.data()};
  ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
  if (::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter) != 0) ::_exit(126);
}

[[noreturn]] void BeTheChild(const std::vector<std::string>& command, const std::string& own,
                             const TempFolder& streams, const Fault* fault) {
  const auto redirect = [&](int descriptor, const char* name, int flags) {
    ::dup2(::open(streams.Path(name).c_str(), flags | O_CLOEXEC, 0600), descriptor);
  };
  redirect(STDIN_FILENO, "in", O_RDONLY);
  redirect(STDOUT_FILENO, "out", O_WRONLY | O_CREAT);
  redirect(STDERR_FILENO, "err", O_WRONLY | O_CREAT);
  const bool alone = ::unshare(CLONE_NEWNET) == 0 || ::unshare(CLONE_NEWUSER | CLONE_NEWNET) == 0;
  if (!alone || ::chdir(own.c_str()) != 0) ::_exit(126);
  ::setenv("LC_ALL", "C.UTF-8", 1);
  std::vector<char*> words;
  for (const std::string& word : command) words.push_back(const_cast<char*>(word.c_str()));
  words.push_back(nullptr);
  ::alarm(kSeconds);
  ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
  ::raise(SIGSTOP);
  InstallFilter(fault);
  ::execv(words[0], words.data());
  ::_exit(127);
}

class Tracer {
 public:
  Tracer(pid_t child, std::string own, Watched& watched, std::string printed, Fault* fault)
      : child_(child),
        own_(std::move(own)),
        watched_(watched),
        printed_(std::move(printed)),
        fault_(fault) {}

  void Run() {
    int state = 0;
    ::waitpid(child_, &state, 0);
    constexpr long kOptions = PTRACE_O_TRACESECCOMP | PTRACE_O_TRACEFORK | PTRACE_O_TRACEVFORK |
                              PTRACE_O_TRACECLONE | PTRACE_O_TRACEEXEC | PTRACE_O_EXITKILL;
    ::ptrace(PTRACE_SETOPTIONS, child_, nullptr, kOptions);
    ::ptrace(PTRACE_CONT, child_, nullptr, nullptr);
    for (pid_t stopped = 0; (stopped = ::waitpid(-1, &state, __WALL)) > 0;) {
      if (WIFSTOPPED(state)) {
        GoOn(stopped, state);
      } else if (stopped == child_) {
        watched_.status = WIFEXITED(state) ? WEXITSTATUS(state) : 128 + WTERMSIG(state);
      }
    }
  }

 private:
  void GoOn(pid_t stopped, int state) {
    const int signal = WSTOPSIG(state), event = state >> 16;
    if (event == PTRACE_EVENT_SECCOMP) Note(stopped);
    const bool ours = event != 0 || signal == SIGTRAP || signal == SIGSTOP;
    ::ptrace(PTRACE_CONT, stopped, nullptr, ours ? 0L : static_cast<long>(signal));
  }

  void Note(pid_t process) {
    __ptrace_syscall_info info{};
    ::ptrace(PTRACE_GET_SYSCALL_INFO, process, sizeof info, &info);
    const auto& args = info.seccomp.args;
    const auto at = [&](int folder, int path) {
      return PathOf(process, static_cast<int>(args[folder]), TextAt(process, args[path]));
    };
    const long call = static_cast<long>(info.seccomp.nr);
    if (fault_ != nullptr && call == fault_->call) Break(process, static_cast<int>(args[0]));
    switch (call) {
      case SYS_socket:
        if (args[0] != AF_UNIX) Add("socket " + std::to_string(args[0]));
        return;
      case SYS_connect:
        return NoteConnection(process, args[1]);
      case SYS_execve:
        return NoteProgram(TextAt(process, args[0]));
      case SYS_execveat:
        return NoteProgram(at(0, 1));
      case SYS_mmap:
        return NoteCode(process, static_cast<int>(args[4]));
      case SYS_openat:
        return NoteOpening(at(0, 1), static_cast<int>(args[2]));
      case SYS_renameat:
      case SYS_renameat2:
      case SYS_linkat:
        NoteWriting(at(0, 1));
        return NoteWriting(at(2, 3));
      case SYS_symlinkat:
        return NoteWriting(at(1, 2));
      case SYS_unlinkat:
      case SYS_mkdirat:
        return NoteWriting(at(0, 1));
#ifdef SYS_open
      case SYS_open:
        return NoteOpening(Here(process, args[0]), static_cast<int>(args[1]));
      case SYS_rename:
      case SYS_link:
      case SYS_symlink:
        return NoteWriting(Here(process, args[1]));
#endif
      default:
        if (fault_ != nullptr && call == fault_->call) return;
        return NoteWriting(Here(process, args[0]));
    }
  }

  void Break(pid_t process, int descriptor) {
    const std::string file = Link(process, "fd/" + std::to_string(descriptor));
    if (!file.starts_with(own_ + "/") && file != printed_) return;
    ++fault_->seen;
    if (fault_->seen < fault_->nth || (fault_->once && fault_->seen > fault_->nth)) return;
    if (fault_->error == 0) return AskForHalf(process);
    Return(process, -fault_->error);
  }

  void NoteProgram(const std::string& path) {
    if (std::exchange(started_, true)) Add("exec " + path);
  }
  /// The name service's own socket is none of a module's doing.
  void NoteConnection(pid_t process, std::uint64_t address) {
    sockaddr_un bytes{};
    Read(process, address, &bytes, sizeof bytes);
    const bool names =
        bytes.sun_family == AF_UNIX && std::strstr(bytes.sun_path, "nscd") != nullptr;
    if (!names) Add("connect " + std::to_string(bytes.sun_family));
  }
  void NoteCode(pid_t process, int descriptor) {
    if (descriptor < 0) return;
    const std::string file = Link(process, "fd/" + std::to_string(descriptor));
    if (file.starts_with(own_ + "/")) Add("load " + file);
  }
  void NoteOpening(const std::string& path, int flags) {
    if ((flags & (O_WRONLY | O_RDWR | O_CREAT | O_TRUNC)) != 0) NoteWriting(path);
  }
  void NoteWriting(const std::string& path) {
    std::error_code error;
    const std::string real = std::filesystem::weakly_canonical(path, error).string();
    if (real == own_ || real.starts_with(own_ + "/")) return;
    if (real == "/dev/null" || real == "/dev/tty") return;
    Add("write " + real);
  }
  void Add(std::string deed) { watched_.deeds.push_back(std::move(deed)); }

  static std::string Link(pid_t process, const std::string& name) {
    std::error_code error;
    return std::filesystem::read_symlink("/proc/" + std::to_string(process) + "/" + name, error)
        .string();
  }
  static void Read(pid_t process, std::uint64_t from, void* to, std::size_t size) {
    const int memory = ::open(("/proc/" + std::to_string(process) + "/mem").c_str(), O_RDONLY);
    const auto got = ::pread(memory, to, size, static_cast<off_t>(from));
    static_cast<void>(got);
    ::close(memory);
  }
  static std::string TextAt(pid_t process, std::uint64_t address) {
    char bytes[4096] = {};
    Read(process, address, bytes, sizeof bytes - 1);
    return bytes;
  }
  static std::string PathOf(pid_t process, int folder, const std::string& path) {
    if (path.starts_with('/')) return path;
    return Link(process, folder == AT_FDCWD ? "cwd" : "fd/" + std::to_string(folder)) + "/" + path;
  }
  static std::string Here(pid_t process, std::uint64_t address) {
    return PathOf(process, AT_FDCWD, TextAt(process, address));
  }

  pid_t child_;
  std::string own_;
  Watched& watched_;
  std::string printed_;
  Fault* fault_;
  bool started_ = false;
};

}  // namespace

bool CanInject() {
#ifdef __x86_64__
  return true;
#else
  return false;
#endif
}

Watched Supervise(const std::vector<std::string>& command, const std::string& own,
                  const std::string& input, Fault* fault) {
  const TempFolder streams;
  streams.Write("in", input);
  const pid_t child = ::fork();
  if (child < 0) throw std::runtime_error("can't fork");
  if (child == 0) BeTheChild(command, own, streams, fault);
  Watched watched;
  const std::string printed = std::filesystem::canonical(streams.Path()).string() + "/out";
  Tracer(child, std::filesystem::canonical(own).string(), watched, printed, fault).Run();
  if (watched.status == 126) throw std::runtime_error("can't run without a network or a filter");
  watched.out = BytesOf(streams.Path("out"));
  watched.err = BytesOf(streams.Path("err"));
  return watched;
}

}  // namespace brelmon::hostile
