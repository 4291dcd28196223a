// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <gtest/gtest.h>

#include "desktop/frame/fake_section.h"
#include "desktop/frame/main_window.h"
#include "desktop/images/image_store.h"
#include "library/library_folder.h"
#include "support/event_loop.h"

namespace quillet {

/// Remembers what it was asked.
class KeptPrompts final : public Prompts {
 public:
  void openLink(const std::string& address) override { opened.push_back(address); }

  std::vector<std::string> opened;
};

/// A window with sections that hold forty apps each, over an empty library.
class WindowTest : public LibraryServiceTest {
 protected:
  [[nodiscard]] ViewWorld views() {
    return {library_, images_, clock_, settings_, [](Instant) { return std::chrono::seconds(0); },
            {}};
  }

  [[nodiscard]] SectionMakers makers() {
    SectionMakers makers;
    for (const SectionFace& face : kSectionFaces) {
      makers[face.id] = [this, id = face.id](const ViewWorld&) {
        auto section = std::make_unique<FakeSection>(id, kApps);
        made_[id] = section.get();
        return section;
      };
    }
    return makers;
  }

  /// As large as it is at first on a large screen, unless it was another size before.
  std::unique_ptr<MainWindow> open(QSize size = {1280, 800}) {
    auto window = std::make_unique<MainWindow>(
        WindowWorld{views(), state_, settings_, makers(), [] { return "us"; }, prompts_});
    window->resize(size);
    window->show();
    handlePendingEvents();
    return window;
  }

  FakeSection& section(SectionId id) { return *made_.at(id); }

  static constexpr int kApps = 40;
  LibraryGateway library_;
  ImageStore images_{http_, clock_, {}};
  StateFile state_{folder_.file().replace_filename("state.json")};
  KeptPrompts prompts_;
  std::map<SectionId, QPointer<FakeSection>> made_;
};

}  // namespace quillet
