// A real PostgreSQL server on a loopback port, with its data in a folder of its own, gone with it.
#pragma once

#include <cstdlib>
#include <stdexcept>
#include <string>

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include "support/TemporaryFolder.h"

namespace scrivanta::testing {

class PostgresServer {
 public:
  PostgresServer() : port_(FreePort()) {
    // The server refuses to be run by root.
    const std::string data = (folder_.path() / "data").string();
    std::filesystem::create_directories(data);
    std::filesystem::permissions(folder_.path(), std::filesystem::perms::all);
    if (geteuid() == 0) {
      Run("chown postgres " + data);
      as_ = "setpriv --reuid=postgres --regid=postgres --clear-groups ";
    }
    Run(as_ + "$(pg_config --bindir)/initdb -N -A trust -U tester -E UTF8 --locale=C.UTF-8 -D " + data);
    Run(as_ + "$(pg_config --bindir)/pg_ctl -w -D " + data + " -l " + data + "/log -o '-F -h 127.0.0.1 -p " +
        std::to_string(port_) + " -k " + data + "' start");
  }
  PostgresServer(const PostgresServer&) = delete;
  PostgresServer& operator=(const PostgresServer&) = delete;
  ~PostgresServer() {
    try {
      Run(as_ + "$(pg_config --bindir)/pg_ctl -w -m immediate -D " + (folder_.path() / "data").string() + " stop");
    } catch (const std::runtime_error&) {
      // It was never there.
    }
  }

  std::u16string ConnectionString() const {
    const std::string port = std::to_string(port_);
    return u"DRIVER=PostgreSQL Unicode;Server=127.0.0.1;Database=postgres;UID=tester;Port=" +
           std::u16string(port.begin(), port.end());
  }

 private:
  static int FreePort() {
    const int socketHandle = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    bind(socketHandle, reinterpret_cast<sockaddr*>(&address), size);
    getsockname(socketHandle, reinterpret_cast<sockaddr*>(&address), &size);
    close(socketHandle);
    return ntohs(address.sin_port);
  }

  static void Run(const std::string& command) {
    if (std::system((command + " >/dev/null 2>&1 </dev/null").c_str()) != 0) {
      throw std::runtime_error("failed: " + command);
    }
  }

  TemporaryFolder folder_;
  int port_;
  std::string as_;
};

}  // namespace scrivanta::testing
