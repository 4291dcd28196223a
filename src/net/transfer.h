// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QNetworkReply>
#include <QObject>
#include <QTimer>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "net/completion.h"
#include "net/http_client.h"
#include "net/inflater.h"

namespace quillet {

/// One reply under way: collects its body up to the request's limit, undoes gzip, ends it when its
/// time is over, and knows why we ended it, which Qt does not tell. Lives in the frame of the
/// coroutine that awaits `finished()`; frees the reply later, from the event loop.
class Transfer {
 public:
  Transfer(QNetworkReply* reply, const HttpRequest& request);
  ~Transfer();
  Transfer(const Transfer&) = delete;
  Transfer& operator=(const Transfer&) = delete;

  /// Set when the reply has ended, whether by itself or by cancel().
  [[nodiscard]] Completion finished() const { return finished_; }

  /// Ends the reply from the event loop: it finishes as usual, only earlier.
  void cancel();

  /// The answer, after finished(). Throws NetworkError when there is none.
  [[nodiscard]] HttpResponse takeResponse();

 private:
  enum class Ending { natural, cancelled, late, tooLarge, broken };

  void collect();
  void keep(std::string_view piece);
  void makeRoom(std::size_t size);
  void end(Ending why);
  void checkWhole() const;

  QNetworkReply* reply_;
  Inflation inflation_;
  std::size_t bodyLimit_;
  std::string body_;
  std::size_t received_ = 0;  ///< bytes, packed where the server packed them
  std::optional<Inflater> inflater_;
  Ending ending_ = Ending::natural;
  bool hasEnded_ = false;  ///< the reply; some of it may still be to be collected
  Completion finished_;
  QTimer timer_;     ///< to the end of the request's time
  QObject context_;  ///< the connections to the reply end with it
};

}  // namespace quillet
