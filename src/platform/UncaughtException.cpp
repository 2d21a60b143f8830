#include "platform/UncaughtException.h"

#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <exception>
#include <new>
#include <string_view>
#include <system_error>

#include "platform/StandardError.h"

namespace tidewright::platform {

namespace {

constexpr std::string_view outOfMemory = "ERREUR : Mémoire insuffisante.\n";

/// By its number, which is errno's in the categories of the standard library and of Asio alike.
/// Allocates nothing: there may be nothing left.
std::string_view lineAbout(const std::error_code& error) {
    switch (error.value()) {
        case EMFILE:
        case ENFILE:
            return "ERREUR : Trop de fichiers et de connexions ouverts : le système n'en accorde "
                   "plus.\n";
        case ENOMEM:
            return outOfMemory;
        default:
            return "ERREUR : Le système n'accorde plus les ressources nécessaires.\n";
    }
}

[[noreturn]] void end(std::string_view line) {
    writeStandardError(line);
    ::_exit(1);
}

std::terminate_handler handlerBefore = nullptr;

/// Called before anything is unwound, with the exception that nobody catches as the current one.
void endOrAbort() {
    try {
        if (std::current_exception()) throw;
    } catch (const std::bad_alloc&) {
        end(outOfMemory);
    } catch (const std::system_error& error) {
        end(lineAbout(error.code()));
    } catch (...) {
        handlerBefore();
    }
    std::abort();
}

}  // namespace

void endWhenResourcesRunOut() {
    handlerBefore = std::set_terminate(endOrAbort);
}

}  // namespace tidewright::platform
