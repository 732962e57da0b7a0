#include <memory>

#include "AddCommands.h"
#include "SecondsRange.h"
#include "TCommandError.h"
#include "TServeCommand.h"

namespace NZELVYR20 {
namespace {

constexpr int kLastPort = 65535;

void AddAccess(CLI::App& serve, TServeArguments& given) {
  serve
      .add_option("--tls-certificate", given.server.certificate,
                  "Serve with TLS under this certificate, a file in PEM")
      ->type_name("FILE");
  serve.add_option("--tls-key", given.server.key, "The certificate's private key, a file in PEM")
      ->type_name("FILE");
  serve
      .add_option("--password-file", given.server.passwordFile,
                  "Answer only the users in this file: name:hash, as openssl passwd -6 makes it")
      ->type_name("FILE");
  CLI::Option* user = serve
                          .add_option("--user", given.user,
                                      "Where root starts it: whose privileges remain "
                                      "(default: nobody)")
                          ->type_name("NAME");
  serve.add_flag("--keep-privileges", given.keepsPrivileges, "Stay root")->excludes(user);
}

}  // namespace

void AddServeCommand(TCommandSet& commands) {
  const auto given = std::make_shared<TServeArguments>();
  CLI::App* serve = commands.Add(
      "serve", "Answer CIM-XML clients and browsers, on this machine unless told otherwise",
      ENeeds::kNothing,
      [given](const TCommandContext& context) { return TServeCommand::Run(context, *given); });
  serve
      ->add_option("--address", given->server.address,
                   "Where to listen (default: 127.0.0.1); others than loopback need TLS and "
                   "passwords")
      ->type_name("ADDRESS");
  serve->add_option("--port", given->server.port, "The port (default: 5988); 0 for a free one")
      ->check(CLI::Range(0, kLastPort).description(""))
      ->type_name("N");
  serve
      ->add_option("--every", given->seconds,
                   "From one collection to the next (default: 60); 0 for one alone")
      ->check(SecondsRange())
      ->type_name("SECONDS");
  AddAccess(*serve, *given);
}

}  // namespace NZELVYR20
