// Try ... Catch ... Finally.
#pragma once

#include <optional>

#include "host/language/scope.hpp"
#include "host/language/statement.hpp"

namespace language {

// Runs the block. Memory that runs short becomes an exception that programs can catch.
Flow runReportingShortage(const Block& block, Frame& frame);

class Try : public Statement {
 public:
  struct Catch {
    std::optional<Variable> variable;  // its class is the one that is caught; without one, every exception is
    Block body;
  };
  Try(Position where, Block body, std::vector<Catch> catches, Block finally)
      : Statement(where), body_(std::move(body)), catches_(std::move(catches)), finally_(std::move(finally)) {}
  Flow run(Frame& frame) const override;

 private:
  Flow runCaught(Frame& frame) const;

  const Block body_;
  const std::vector<Catch> catches_;
  const Block finally_;
};

}  // namespace language
