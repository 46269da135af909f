#pragma once

namespace zevfit {

/// Counts the drawings under way, one within the other by way of the fields and sliders that each
/// sets. A slider whose one position is worth about the last decimal of its field may move itself
/// again and again; this ends it with a Fault.
class DrawingDepth {
 public:
  /// One drawing, for as long as it lives.
  class Level {
   public:
    /// Throws Fault beyond kDeepest.
    explicit Level(DrawingDepth& depth);
    Level(const Level&) = delete;
    Level& operator=(const Level&) = delete;
    ~Level() { --depth_.levels_; }

   private:
    DrawingDepth& depth_;
  };

 private:
  static constexpr int kDeepest = 100;
  int levels_ = 0;
};

}  // namespace zevfit
