// The socket side of `maxsim serve`: listens on a Unix socket (mode 0600) and answers each request
// line of each connection with one reply line, until `ctl quit`, SIGTERM or SIGINT; then removes
// the socket. A socket file that nobody answers at is stale and replaced; one that answers means
// another instance runs, and serving fails.
#pragma once

#include <iosfwd>
#include <string>

namespace tolmen::maxsim {

class Session;

// Writes "ready" to `out` once it listens. Returns 0 after a normal stop; throws
// std::runtime_error when the socket cannot be set up.
int Serve(const std::string& socketPath, Session& session, std::ostream& out);

// Opens a connection to a listening instance, or -1.
int ConnectSocket(const std::string& socketPath);

}  // namespace tolmen::maxsim
