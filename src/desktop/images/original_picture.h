// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QImage>
#include <QObject>
#include <QPointer>
#include <string>

#include "net/stop_token.h"
#include "net/task.h"

namespace quillet {

class ImageStore;

/// One picture in its largest size, as a view shows it: fetched, and decoded on a thread. Another
/// one takes the place of the first, whose memory is given back; what comes late of it is dropped.
class OriginalPicture : public QObject {
  Q_OBJECT

 public:
  enum class State { none, loading, ready, failed };

  /// The store outlives it.
  explicit OriginalPicture(ImageStore& images, QObject* parent = nullptr);
  ~OriginalPicture() override;

  /// An empty address is no picture.
  void show(const std::string& address);
  void tryAgain();

  [[nodiscard]] State state() const { return state_; }
  [[nodiscard]] const std::string& address() const { return address_; }
  [[nodiscard]] const QImage& image() const { return image_; }  ///< null unless it is ready
  /// As they came; empty unless it is ready.
  [[nodiscard]] const std::string& bytes() const { return bytes_; }

 Q_SIGNALS:
  void changed();

 private:
  struct Loaded {
    std::string bytes;
    QImage image;
  };

  static Task<> load(QPointer<OriginalPicture> picture, int generation);
  static Task<Loaded> read(ImageStore* images, std::string address, StopToken stop);
  void begin();
  void take(Loaded loaded);

  ImageStore& images_;
  std::string address_;
  State state_ = State::none;
  std::string bytes_;
  QImage image_;
  StopSource stop_;
  int generation_ = 0;
};

}  // namespace quillet
