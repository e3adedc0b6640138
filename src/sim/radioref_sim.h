#pragma once
// The simulated RadioReference service: the service description and rpc/encoded SOAP replies
// over real HTTP on 127.0.0.1, from a built-in dataset or from recorded real replies.
//
//   GET  /soap2/?wsdl&v=15        the WSDL, its soap:address pointing at this server
//   POST /soap2/index.php         one SOAP call; the method element names the operation
#include <cstddef>
#include <memory>
#include <string>

namespace zel::sim {

struct RadioRefSimOptions {
  int port = 0;              // 0: any free port
  std::string dataDir;       // recorded replies (v18 folder): answer from them for their ids
  int slowMs = 0;            // delay every reply by this much
  bool renamedWsdl = false;  // serve the variant with renamed messages, soapActions, namespace
};

// A reply of the service, as the HTTP layer sends it.
struct RadioRefSimReply {
  int status = 200;
  std::string contentType = "text/xml; charset=utf-8";
  std::string body;
};

class RadioRefSim {
 public:
  explicit RadioRefSim(RadioRefSimOptions options);
  ~RadioRefSim();
  RadioRefSim(const RadioRefSim&) = delete;
  RadioRefSim& operator=(const RadioRefSim&) = delete;

  // Starts serving on a thread of its own; false with `error` when the port cannot be had.
  bool start(std::string* error = nullptr);
  // Serves on the calling thread until stop() (used by `zel sim radioref`).
  bool run(std::string* error = nullptr);
  void stop();
  int port() const;
  // "http://127.0.0.1:PORT/soap2/": the end point folder a client takes as its BaseUrl.
  std::string endpoint() const;
  // Why the recordings of `dataDir` could not be read ("" when they could); start() and
  // run() refuse to serve then.
  std::string loadError() const;
  // How many recorded replies were loaded from `dataDir`.
  std::size_t recordedCount() const;

  // The answers without HTTP, for tests of the dataset.
  RadioRefSimReply wsdl() const;
  RadioRefSimReply call(const std::string& soapAction, const std::string& body) const;

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace zel::sim
