// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "net/transfer.h"

#include <QVariant>
#include <algorithm>
#include <array>
#include <utility>

#include "net/network_errors.h"

namespace quillet {
namespace {

constexpr int kWholeAnswer = 200;
constexpr int kFirstErrorStatus = 400;
constexpr std::size_t kPieceSize = 1024;  // may unpack to a thousand times as much
/// What takes some milliseconds to unpack or to move: other events come between.
constexpr std::size_t kMuch = std::size_t{1024} * 1024;
constexpr std::size_t kRoomBehind = 64;  // lets simdjson read a body without a copy of it

/// What Qt may hold of a body before we take it; without a bound it reads on while we are busy, and
/// all of an endless body may have come before its first piece is refused.
constexpr qint64 kReadAhead = qint64{1024} * 1024;

/// The HTTP status, or what a file's outcome would be over HTTP; 0 when there was no answer.
int statusOf(const QNetworkReply& reply) {
  const QVariant status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute);
  if (status.isValid()) return status.toInt();
  if (!reply.url().isLocalFile()) return 0;
  if (reply.error() == QNetworkReply::NoError) return 200;
  return reply.error() == QNetworkReply::ContentNotFoundError ? 404 : 0;
}

BodySource sourceOf(const QNetworkReply& reply) {
  if (reply.url().isLocalFile()) return BodySource::file;
  const bool isKept = reply.attribute(QNetworkRequest::SourceIsFromCacheAttribute).toBool();
  return isKept ? BodySource::cache : BodySource::network;
}

std::string redirectOf(const QNetworkReply& reply) {
  const QUrl asked = reply.request().url();
  return reply.url() == asked ? std::string() : reply.url().toEncoded().toStdString();
}

bool isPacked(const QNetworkReply& reply) {
  return reply.rawHeader("Content-Encoding").trimmed().toLower() == "gzip";
}

/// What the server says of the body's size; 0 where it does not.
std::size_t announcedSize(const QNetworkReply& reply) {
  return static_cast<std::size_t>(
      std::max<qint64>(0, reply.header(QNetworkRequest::ContentLengthHeader).toLongLong()));
}

}  // namespace

Transfer::Transfer(QNetworkReply* reply, const HttpRequest& request)
    : reply_(reply), inflation_(request.inflation), bodyLimit_(request.bodyLimit) {
  reply_->setReadBufferSize(kReadAhead);
  QObject::connect(reply_, &QNetworkReply::readyRead, &context_, [this] { collect(); });
  QObject::connect(reply_, &QNetworkReply::finished, &context_, [this] {
    hasEnded_ = true;
    collect();
  });
  QObject::connect(&timer_, &QTimer::timeout, &context_, [this] { end(Ending::late); });
  timer_.setSingleShot(true);
  timer_.start(request.totalTimeout);
}

Transfer::~Transfer() { reply_->deleteLater(); }

void Transfer::cancel() { end(Ending::cancelled); }

void Transfer::collect() {
  std::array<char, kPieceSize> piece;
  const std::size_t before = body_.size();
  // An aborted reply must not be read; Qt closes it.
  while (ending_ == Ending::natural && reply_->isOpen()) {
    if (body_.size() - before > kMuch) {
      QMetaObject::invokeMethod(&context_, [this] { collect(); }, Qt::QueuedConnection);
      return;
    }
    const qint64 count = reply_->read(piece.data(), piece.size());
    if (count <= 0) break;
    keep({piece.data(), static_cast<std::size_t>(count)});
  }
  if (hasEnded_) finished_.set();
}

void Transfer::keep(std::string_view piece) {
  received_ += piece.size();
  if (std::max(received_, announcedSize(*reply_)) > bodyLimit_) return end(Ending::tooLarge);
  if (inflation_ == Inflation::automatic && !inflater_ && isPacked(*reply_)) inflater_.emplace();
  if (body_.empty() && !inflater_)
    body_.reserve(std::min(announcedSize(*reply_), bodyLimit_) + kRoomBehind);
  makeRoom(inflater_ ? kMuch : piece.size());
  try {
    if (inflater_) {
      inflater_->append(piece, bodyLimit_, body_);
    } else {
      body_.append(piece);
    }
    if (body_.size() > bodyLimit_) end(Ending::tooLarge);
  } catch (const DecodingError&) {
    end(Ending::broken);
  }
}

/// Takes all that a body may need once it is large, and the system gives it out as it is filled: a
/// body that is moved each time that it has doubled would hold the event loop.
void Transfer::makeRoom(std::size_t size) {
  if (body_.size() > kMuch && body_.capacity() - body_.size() < size)
    body_.reserve(bodyLimit_ + kMuch);
}

void Transfer::end(Ending why) {
  if (ending_ != Ending::natural) return;
  ending_ = why;
  // abort() emits finished() before it returns, and we may be inside one of the reply's signals.
  QMetaObject::invokeMethod(reply_, &QNetworkReply::abort, Qt::QueuedConnection);
}

HttpResponse Transfer::takeResponse() {
  if (ending_ == Ending::cancelled) throw cancelledError();
  if (ending_ == Ending::tooLarge) throw tooLargeError(bodyLimit_);
  const int status = statusOf(*reply_);
  // Qt counts error statuses as errors of the transfer; to us they are answers, cut or not.
  if (status < kFirstErrorStatus) checkWhole();
  const BodySource source = sourceOf(*reply_);
  // What was read from the cache was received some other day.
  return {status, std::move(body_), source, source == BodySource::cache ? 0 : received_,
          redirectOf(*reply_)};
}

void Transfer::checkWhole() const {
  if (ending_ == Ending::broken) throw brokenEncodingError();
  // It may have ended by itself in the same moment, with a rest that nobody has read.
  if (ending_ == Ending::late) throw transferError(QNetworkReply::TimeoutError, {});
  if (reply_->error() != QNetworkReply::NoError) {
    throw transferError(reply_->error(), reply_->errorString());
  }
  // Qt often takes the loss of a connection that was to be kept open for the end of the body.
  if (statusOf(*reply_) == kWholeAnswer && sourceOf(*reply_) == BodySource::network &&
      received_ < announcedSize(*reply_)) {
    throw transferError(QNetworkReply::RemoteHostClosedError, {});
  }
  if (inflater_ && !inflater_->isComplete()) throw brokenEncodingError();
}

}  // namespace quillet
