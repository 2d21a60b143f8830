#include "network/SocketState.h"

#include <sys/ioctl.h>
#include <sys/socket.h>

#ifdef __linux__
#include <linux/filter.h>
#include <linux/sockios.h>
#endif

namespace tidewright::network {

bool hasFailed(int socket) {
    int error = 0;
    socklen_t size = sizeof error;
    return getsockopt(socket, SOL_SOCKET, SO_ERROR, &error, &size) != 0 || error != 0;
}

#ifdef __linux__

bool isAllAcknowledged(int socket) {
    int bytes = 0;
    return ioctl(socket, SIOCOUTQ, &bytes) != 0 || bytes == 0;
}

void ignoreInput(int socket) {
    sock_filter dropEverything{.code = BPF_RET | BPF_K, .jt = 0, .jf = 0, .k = 0};
    const sock_fprog program{.len = 1, .filter = &dropEverything};
    setsockopt(socket, SOL_SOCKET, SO_ATTACH_FILTER, &program, sizeof program);
}

#else

bool isAllAcknowledged(int socket) {
    int bytes = 0;
    socklen_t size = sizeof bytes;
    return getsockopt(socket, SOL_SOCKET, SO_NWRITE, &bytes, &size) != 0 || bytes == 0;
}

void ignoreInput(int) {}

#endif

}  // namespace tidewright::network
