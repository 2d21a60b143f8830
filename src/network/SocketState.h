#pragma once

namespace tidewright::network {

// What must be asked of the system itself about a connected TCP socket, since Asio does not.

/// Whether everything sent through `socket` has been acknowledged by the client. True where the
/// system cannot tell.
bool isAllAcknowledged(int socket);

/// Whether the connection has failed. Answers once: asking clears the failure.
bool hasFailed(int socket);

/// Has the system throw away what still arrives for `socket`, where it can do that. For the last
/// moment before a close: a client that answers our end of stream with its own in the midst of it
/// would otherwise leave the port occupied for a minute.
void ignoreInput(int socket);

}  // namespace tidewright::network
