#pragma once

namespace tidewright::network {

// What must be asked of the system itself about a connected TCP socket, since Asio does not.

/// Whether everything sent through `socket` has been acknowledged by the other side. True where the
/// system cannot tell.
bool isAllAcknowledged(int socket);

/// Whether the connection has failed. Answers once: asking clears the failure.
bool hasFailed(int socket);

/// Makes `socket` deaf to its peer, where the system can do that. For the last moment before a
/// close: a peer that answers our end of stream with its own in the midst of it would otherwise
/// leave the port occupied for a minute.
void deafen(int socket);

}  // namespace tidewright::network
