// Runs a test program with a server of the suite: run_on_server PROGRAM [ARGUMENTS]. The program finds the
// server's address in its environment, and connects through FreeTDS and TLS.

#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <iostream>
#include <memory>

#include "server/suite_session.h"
#include "support/temp_folder.h"

namespace cu::test {
namespace {

int runOnServer(char** program) {
  const TempFolder folder;
  const std::string path = folder.path();
  const TdsServer server([path](const std::string& database) -> TdsServer::Answer {
    const auto session = std::make_shared<SuiteSession>(path, database);
    return [session](std::string_view statement) { return session->answer(statement); };
  });
  ::setenv("CU_TEST_SERVER",
           ("Driver=FreeTDS;Server=127.0.0.1;Port=" + std::to_string(server.port()) + ";UID=sa").c_str(), 1);
  ::setenv("CU_TEST_PASSWORD", "prova", 1);
  const pid_t child = ::fork();
  if (child == 0) {
    ::execv(program[0], program);
    ::_exit(127);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : 1;
}

}  // namespace
}  // namespace cu::test

int main(int argc, char** argv) {
  if (argc < 2) {
    std::cerr << "usage: run_on_server PROGRAM [ARGUMENTS]\n";
    return 2;
  }
  return cu::test::runOnServer(argv + 1);
}
