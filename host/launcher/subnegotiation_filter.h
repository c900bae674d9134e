/// Takes telnet subnegotiations out of a stream of bytes, whatever their length and however they are split.
///
/// The launcher understands none of them, and the telnet library behind this filter would hand on the end of one that
/// outgrows its buffer as if it had been typed.
#pragma once

#include <string>
#include <string_view>

namespace host {

class SubnegotiationFilter {
  public:
    /// What of `bytes`, and of an IAC held back before, stands outside of subnegotiations. One that does not end
    /// takes all that follows.
    std::string pass(std::string_view bytes);

  private:
    enum class State { data, command, subnegotiation, subnegotiationCommand };

    void take(char byte, std::string& passed);

    State state_ = State::data;
};

}  // namespace host
