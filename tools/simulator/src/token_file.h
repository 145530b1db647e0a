// The simulator's per-run token: drawn from the system's randomness, and kept in a file that only
// the user can read, so that other local users cannot drive the simulator.
//
// Thread safety: stateless.
#ifndef LIVEVIEW_SIMULATOR_TOKEN_FILE_H
#define LIVEVIEW_SIMULATOR_TOKEN_FILE_H

#include <string>

namespace LiveViewSimulator {

// 32 lowercase hex characters from /dev/urandom; false with error set when it cannot be read.
bool DrawToken(std::string& token, std::string& error);

// $HOME/.liveview/serve-PORT.token.
std::string DefaultTokenFile(int port);

// Writes token to path with mode 0600, creating its folder with mode 0700 when missing; false with
// error set on failure.
bool WriteTokenFile(const std::string& path, const std::string& token, std::string& error);

// Constant-time comparison, so that timing does not tell how much of a guess was right.
bool SameToken(const std::string& given, const std::string& token);

}  // namespace LiveViewSimulator

#endif  // LIVEVIEW_SIMULATOR_TOKEN_FILE_H
