#include "analytics/CrashDump.h"

#include <fcntl.h>
#include <time.h>
#include <ucontext.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

// Words of the stack are read that no variable stands for.
#define PELLUMAR_UNCHECKED __attribute__((no_sanitize("address", "thread", "undefined")))

namespace pellumar::crash {
namespace {

constexpr std::size_t kMostModules = 512;
constexpr std::size_t kMostFrames = 48;
constexpr std::size_t kMostStackBytes = 64 << 10;

// A range of memory with code.
struct Module {
    std::uintptr_t begin;
    std::uintptr_t end;
    std::uintptr_t offset;
    std::array<char, 64> name;
};

// Of the process that is about to end; a handler has no memory of its own to speak of.
struct Memory {
    std::array<Module, kMostModules> modules;
    std::size_t moduleCount;
    std::uintptr_t stackBegin;
    std::uintptr_t stackEnd;
};
Memory memory;

struct Registers {
    std::uintptr_t instruction = 0;
    std::uintptr_t stack = 0;
    std::uintptr_t link = 0;
};

Registers registersOf([[maybe_unused]] const void* context) {
#if defined(__x86_64__)
    const auto& registers = static_cast<const ucontext_t*>(context)->uc_mcontext.gregs;
    return {.instruction = static_cast<std::uintptr_t>(registers[REG_RIP]),
            .stack = static_cast<std::uintptr_t>(registers[REG_RSP])};
#elif defined(__aarch64__)
    const auto& registers = static_cast<const ucontext_t*>(context)->uc_mcontext;
    return {.instruction = registers.pc, .stack = registers.sp, .link = registers.regs[30]};
#else
    return {};
#endif
}

// What stands at an address, which the kernel tells as a number. In no library's function: a
// sanitizer would look at where it reads.
template <typename Value>
PELLUMAR_UNCHECKED Value valueAt(std::uintptr_t address) {
    // NOLINTNEXTLINE(performance-no-int-to-ptr)
    return *reinterpret_cast<const Value*>(address);
}

// Whether execution can come back to `address`: a call stands in front of it.
PELLUMAR_UNCHECKED bool followsCall([[maybe_unused]] std::uintptr_t address) {
#if defined(__x86_64__)
    const auto before = [address](std::uintptr_t bytes)
                            PELLUMAR_UNCHECKED { return valueAt<std::uint8_t>(address - bytes); };
    // CALL rel32, or CALL r/m64 in its lengths.
    return before(5) == 0xe8 || (before(2) == 0xff && (before(1) & 0x38) == 0x10) ||
           (before(3) == 0xff && (before(2) & 0x38) == 0x10) ||
           (before(6) == 0xff && (before(5) & 0x38) == 0x10);
#elif defined(__aarch64__)
    if (address % 4 != 0) {
        return false;
    }
    const auto instruction = valueAt<std::uint32_t>(address - 4);
    // BL, BLR.
    return (instruction & 0xfc000000U) == 0x94000000U || (instruction & 0xfffffc1fU) == 0xd63f0000U;
#else
    return false;
#endif
}

// Text for one write, with no end mark.
class Line {
  public:
    Line& add(std::string_view text) {
        const std::size_t size = std::min(text.size(), bytes_.size() - size_);
        std::memcpy(bytes_.data() + size_, text.data(), size);
        size_ += size;
        return *this;
    }
    Line& addNumber(std::uintptr_t number, unsigned base) {
        std::array<char, 24> digits{};
        std::size_t at = digits.size();
        do {
            digits[--at] = "0123456789abcdef"[number % base];
            number /= base;
        } while (number != 0);
        return add({digits.data() + at, digits.size() - at});
    }
    void writeTo(int file) const {
        // A disk without room costs the marker, nothing else.
        [[maybe_unused]] const ssize_t written = ::write(file, bytes_.data(), size_);
    }

  private:
    std::array<char, 256> bytes_{};
    std::size_t size_ = 0;
};

// Reads a hexadecimal number and the character behind it off the front.
std::uintptr_t takeHex(std::string_view& text) {
    std::uintptr_t number = 0;
    while (!text.empty()) {
        const char c = text.front();
        text.remove_prefix(1);
        if (c >= '0' && c <= '9') {
            number = number * 16 + static_cast<std::uintptr_t>(c - '0');
        } else if (c >= 'a' && c <= 'f') {
            number = number * 16 + static_cast<std::uintptr_t>(c - 'a' + 10);
        } else {
            break;
        }
    }
    return number;
}

// A line of /proc/self/maps, proc(5): "begin-end rwxp offset device inode path".
void takeMapping(std::string_view line, std::uintptr_t stack) {
    const std::uintptr_t begin = takeHex(line);
    const std::uintptr_t end = takeHex(line);
    // An overflow stands just below its stack.
    constexpr std::uintptr_t kGuardBytes = 64 << 10;
    if (stack + kGuardBytes >= begin && stack < end && line.substr(0, 2) == "rw" &&
        memory.stackEnd == 0) {
        memory.stackBegin = begin;
        memory.stackEnd = end;
    }
    if (line.size() < 5 || line[0] != 'r' || line[2] != 'x' ||
        memory.moduleCount == memory.modules.size()) {
        return;
    }
    line.remove_prefix(5);
    Module& module = memory.modules[memory.moduleCount++];
    module = {.begin = begin, .end = end, .offset = takeHex(line), .name = {}};
    const std::size_t name = line.rfind('/');
    if (name != std::string_view::npos) {
        line.remove_prefix(name + 1);
        std::copy_n(line.data(), std::min(line.size(), module.name.size() - 1), module.name.data());
    }
}

void readMappings(std::uintptr_t stack) {
    const int file = ::open("/proc/self/maps", O_RDONLY | O_CLOEXEC);
    std::array<char, 4096> chunk{};
    std::array<char, 512> line{};
    std::size_t lineSize = 0;
    ssize_t size = 0;
    while (file >= 0 && (size = ::read(file, chunk.data(), chunk.size())) > 0) {
        for (const char c : std::string_view(chunk.data(), static_cast<std::size_t>(size))) {
            if (c == '\n') {
                takeMapping({line.data(), lineSize}, stack);
                lineSize = 0;
            } else if (lineSize < line.size()) {
                line[lineSize++] = c;
            }
        }
    }
    if (file >= 0) {
        ::close(file);
    }
}

const Module* moduleAt(std::uintptr_t address) {
    for (std::size_t i = 0; i < memory.moduleCount; ++i) {
        // The longest call has to be readable in front of an address.
        if (address >= memory.modules[i].begin + 8 && address < memory.modules[i].end) {
            return &memory.modules[i];
        }
    }
    return nullptr;
}

void writeFrame(int file, const Module& module, std::uintptr_t address) {
    const std::string_view name(module.name.data());
    Line()
        .add("frame ")
        .add(name.empty() ? "?" : name)
        .add("+0x")
        .addNumber(address - module.begin + module.offset, 16)
        .add("\n")
        .writeTo(file);
}

PELLUMAR_UNCHECKED void writeStack(int file, const Registers& registers) {
    const std::uintptr_t lowest = std::max(registers.stack, memory.stackBegin);
    const std::uintptr_t first = (lowest + sizeof(void*) - 1) & ~(sizeof(void*) - 1);
    const std::uintptr_t end = std::min(memory.stackEnd, first + kMostStackBytes);
    std::size_t frames = 0;
    for (std::uintptr_t at = first; at < end && frames < kMostFrames; at += sizeof(void*)) {
        const auto address = valueAt<std::uintptr_t>(at);
        const Module* const module = moduleAt(address);
        if (module != nullptr && followsCall(address)) {
            writeFrame(file, *module, address);
            ++frames;
        }
    }
}

}  // namespace

void dump(const char* path,
          std::string_view signalName,
          const char* version,
          const void* context) noexcept {
    const int file =
        ::open(path, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR);
    if (file < 0) {
        return;
    }
    // What is surest comes first, should this be the end.
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    Line()
        .add("signal ")
        .add(signalName)
        .add("\ntime ")
        .addNumber(static_cast<std::uintptr_t>(now.tv_sec), 10)
        .add("\nprocess ")
        .addNumber(static_cast<std::uintptr_t>(::getpid()), 10)
        .add("\nversion ")
        .add(version)
        .add("\n")
        .writeTo(file);
    const Registers registers = registersOf(context);
    readMappings(registers.stack);
    for (const std::uintptr_t address : {registers.instruction, registers.link}) {
        if (const Module* const module = moduleAt(address)) {
            writeFrame(file, *module, address);
        }
    }
    writeStack(file, registers);
    ::close(file);
}

}  // namespace pellumar::crash
