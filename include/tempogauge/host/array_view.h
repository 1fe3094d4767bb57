// SPDX-License-Identifier: BSD-3-Clause
// A non-owning view of contiguous elements (pointer and count), used where
// the public interface hands arrays of host values across. It is the
// project's own type rather than std::span so that the public headers compile
// as C++17 as well as C++20, with the same signatures in both.
#pragma once

#include <cstddef>
#include <type_traits>
#include <utility>

template <class T>
class tgArrayView {
 public:
  constexpr tgArrayView() noexcept = default;
  constexpr tgArrayView(T* data, std::size_t size) noexcept : data_(data), size_(size) {}

  // Any contiguous container whose data() converts to T* (std::array,
  // std::vector, std::span, another view).
  template <class Container,
            class = std::enable_if_t<
                !std::is_same_v<std::decay_t<Container>, tgArrayView> &&
                std::is_convertible_v<decltype(std::declval<Container&>().data()), T*>>>
  constexpr tgArrayView(Container& c) noexcept : data_(c.data()), size_(c.size()) {}
  template <class Container,
            class = std::enable_if_t<
                !std::is_same_v<std::decay_t<Container>, tgArrayView> &&
                std::is_convertible_v<decltype(std::declval<const Container&>().data()), T*>>,
            class = void>
  constexpr tgArrayView(const Container& c) noexcept : data_(c.data()), size_(c.size()) {}

  constexpr T* data() const noexcept { return data_; }
  constexpr std::size_t size() const noexcept { return size_; }
  constexpr bool empty() const noexcept { return size_ == 0; }
  constexpr T& operator[](std::size_t i) const noexcept { return data_[i]; }
  constexpr T* begin() const noexcept { return data_; }
  constexpr T* end() const noexcept { return data_ + size_; }

 private:
  T* data_ = nullptr;
  std::size_t size_ = 0;
};
