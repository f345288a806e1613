#include <cstddef>
#include <cstdint>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

// For a fuzzer whose first byte chooses what is fuzzed: leaves that byte alone. A run that begins
// with the inputs of one kind stays with it, so what another has covered hides nothing from it.
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data,
                                               std::size_t size,
                                               std::size_t maxSize,
                                               unsigned /*seed*/) {
    if (size == 0 || maxSize < 2) {
        return LLVMFuzzerMutate(data, size, maxSize);
    }
    return 1 + LLVMFuzzerMutate(data + 1, size - 1, maxSize - 1);
}
