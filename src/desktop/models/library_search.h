// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <vector>

#include "desktop/platform/search_provider.h"
#include "library/library_reader.h"

namespace quillet {

/// Finds what the desktop's search looks for among the apps that the user watches, owns and
/// collects, by their names. It reads the library alone, which need not be there, and follows it.
/// Hits go by "quillet:" links.
class LibrarySearch : public SearchAnswers {
 public:
  /// `storefront`: the user's, of which nothing is said. `start`: starts the application with these
  /// arguments.
  LibrarySearch(std::filesystem::path library, std::string storefront,
                std::function<void(const std::vector<std::string>& arguments)> start);

  [[nodiscard]] QStringList find(const QStringList& words) override;
  [[nodiscard]] std::optional<SearchHit> describe(const QString& hit) override;
  void open(const QString& hit) override;
  void search(const QString& text) override;

 private:
  struct Found {
    SearchHit hit;
    QString folded;
    QString country;
  };

  void follow();
  void read();

  std::filesystem::path library_;
  std::string storefront_;
  std::function<void(const std::vector<std::string>&)> start_;
  std::optional<LibraryReader> reader_;  ///< none where there is no library
  std::map<QString, Found> apps_;        ///< by their links
};

}  // namespace quillet
