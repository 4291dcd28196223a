// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QLocalServer>
#include <QObject>
#include <QPointer>
#include <optional>
#include <string>
#include <vector>

#include "desktop/services/instance_claim.h"

class QLocalSocket;

namespace quillet {

/// Whether a window can be opened; who asks for one where none can be is told so.
enum class Windows { possible, impossible };

/// The one running application of a data folder, which hears of later starts. Their arguments wait
/// until they can be served; a start that is told of none of that becomes the next application.
class SingleInstance : public QObject {
  Q_OBJECT

 public:
  explicit SingleInstance(InstanceClaim claim);

  /// From now on arguments are heard of, first those that wait.
  void serve(Windows windows);

  /// The application is about to end: nobody is heard any more. Who waits starts anew, and waits
  /// until this object is gone.
  void close();

 Q_SIGNALS:
  /// A later start handed these over, and was told so. Other messages are ignored.
  void argumentsReceived(const std::vector<std::string>& arguments);

 private:
  struct Waiting {
    QPointer<QLocalSocket> connection;
    std::vector<std::string> arguments;
  };

  void takeConnections();
  [[nodiscard]] bool isWaiting(const QLocalSocket* connection) const;
  void read(QLocalSocket* connection);
  void take(const Waiting& start);

  InstanceClaim claim_;
  QLocalServer server_;
  std::optional<Windows> windows_;  ///< absent before arguments are served
  std::vector<Waiting> waiting_;
};

}  // namespace quillet
