// Preloaded into an emulated program: the programs that it starts, itself among them, run in the emulator
// too. The machine's own kernel could not start them.

#include <array>
#include <climits>
#include <cstdlib>
#include <dlfcn.h>
#include <spawn.h>
#include <vector>

namespace {

// For emulated programs only; the emulator itself is the machine's own.
[[gnu::constructor]] void LeaveTheEnvironment() {
    unsetenv("LD_PRELOAD");
}

} // namespace

extern "C" int posix_spawn(pid_t* pnProcess, const char* szProgram,
                           const posix_spawn_file_actions_t* pActions, const posix_spawnattr_t* pAttributes,
                           char* const* pszArguments, char* const* pszEnvironment) {
    static const auto pSpawn = reinterpret_cast<decltype(&posix_spawn)>(dlsym(RTLD_NEXT, "posix_spawn"));
    std::array<char, PATH_MAX> szResolved; // the link to the running program would lead to the emulator
    char szEmulator[] = ORVEX_EMULATOR, szName[] = "-0";
    std::vector<char*> aWords = {szEmulator, szName, *pszArguments, realpath(szProgram, szResolved.data())};
    do
        aWords.push_back(*++pszArguments);
    while (*pszArguments != nullptr);
    return pSpawn(pnProcess, szEmulator, pActions, pAttributes, aWords.data(), pszEnvironment);
}
