#pragma once

#include <sys/mman.h>
#include <sys/stat.h>

#include <cstdlib>
#include <fcntl.h>
#include <type_traits>

/// Whether this run has chosen that change of the code. A run without a choice can write down which
/// changes it came to: one byte each, in a file that also outlives a crash.
inline bool isMutant(int number) noexcept
{
    static const char *const choice = std::getenv("QUORVEL_MUTANT");
    static const int chosen = choice ? std::atoi(choice) : 0;
    static char *const reached = []() -> char * {
        const char *path = std::getenv("QUORVEL_MUTANTS_REACHED");
        const int file = path ? ::open(path, O_RDWR | O_CLOEXEC) : -1;
        struct stat status = {};
        if (file < 0 || ::fstat(file, &status) != 0)
            return nullptr;
        void *bytes =
            ::mmap(nullptr, static_cast<size_t>(status.st_size), PROT_WRITE, MAP_SHARED, file, 0);
        return bytes == MAP_FAILED ? nullptr : static_cast<char *>(bytes);
    }();
    if (reached)
        reached[number] = 1;
    return number == chosen;
}

/// The same in code that also runs in the compiler, where nothing is changed.
constexpr bool isMutantAtRun(int number) noexcept
{
    return !std::is_constant_evaluated() && isMutant(number);
}
