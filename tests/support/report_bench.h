#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "model/sliders.h"
#include "plot/window/direction_events.h"
#include "report/collection.h"
#include "tests/support/plot_bench.h"
#include "tests/support/recording_printer.h"

namespace zevfit {

/// A thumbnail on a page, as the page records it.
inline constexpr std::string_view kThumbnailText = "thumbnail";

/// The print collection without a screen. What is done to its controls stands in `calls`, in order.
class MemoryReportWindow : public ReportWindow {
 public:
  int tab() const override { return selected; }
  void setSlider(int columns) override {
    if (sliderAt == columns) return;
    sliderAt = columns;
    if (onChange) onChange();
  }
  int slider() const override { return sliderAt; }
  int shownColumns() const override { return shown; }
  void showColumns(int columns) override { shown = columns; }
  int appliedColumns() const override { return applied; }
  void applyColumns(int columns) override { applied = columns; }
  bool deleteTicked() const override { return ticked; }
  void setDeleteTicked(bool now) override { ticked = now; }

  void showPage(int slot, bool visible) override { visiblePage.at(at(slot)) = visible; }
  RecordingSurface& page(int slot) override { return pages.at(at(slot)); }
  void refreshPage(int slot) override { calls.push_back("refresh " + std::to_string(slot)); }
  RecordingSurface& settings() override { return small; }
  RecordingSurface& thumbnail(double width, double height) override {
    thumbnailSize = Place(width, height);
    return sketch;
  }
  void pasteThumbnail(int slot, double left, double top) override {
    page(slot).text(left, top, kThumbnailText, {}, kBlack);
  }

  void pasteBlank(int slot, double left, double top) override {
    page(slot).box(left, top, thumbnailSize.x, thumbnailSize.y, kWhite);
  }

  void showLegend(std::string_view variable, std::string_view direction) override {
    legend = std::string(variable) + "|" + std::string(direction);
  }
  void setBarMaximum(int maximum) override {
    calls.push_back("maximum " + std::to_string(maximum));
  }
  void setBarValue(int value) override { calls.push_back("bar " + std::to_string(value)); }
  void setBusy(bool now) override { calls.push_back(now ? "busy" : "ready"); }
  void showNormally() override {
    calls.emplace_back("shown");
    if (refusesToShow) throw Fault("no window");
  }

  int selected = 1;
  int sliderAt = 1;
  int shown = 1;
  int applied = 1;
  bool ticked = false;
  std::function<void()> onChange;
  std::array<bool, kReports> visiblePage{};
  std::array<RecordingSurface, kReports> pages;
  RecordingSurface small, sketch;
  Place thumbnailSize{0, 0};
  std::string legend = "-|-";
  bool refusesToShow = false;
  std::vector<std::string> calls;

 private:
  static std::size_t at(int slot) { return static_cast<std::size_t>(slot); }
};

/// The plot sample with its print collection, which has just been loaded.
struct ReportBench : PlotBench {
  MemoryReportWindow reportWindow;
  RecordingPrinter printer;
  Collection reports{fit, windows, printer, reportWindow};

  ReportBench() {
    reportWindow.onChange = [this] { HScroll1_Change(reports); };
    Form_Load(reports);
  }

  void selectTab(int tab) {
    reportWindow.selected = tab;
    TabStrip1_Click(reports);
  }
  /// Moves the slider by its arrows and presses "OK".
  void giveColumns(int columns) {
    reportWindow.setSlider(columns);
    Command1_Click(reports);
  }
  /// Drags the thumb, up to its release.
  void dragColumns(int columns) {
    const int before = reportWindow.sliderAt;
    reportWindow.sliderAt = columns;
    HScroll1_Scroll(reports);
    if (before != columns) HScroll1_Change(reports);
  }
  /// Clicks in the middle of a cell of the page as its report has it.
  void clickCell(int row, int column) {
    const auto [x, y] = middleOf(row, column);
    Picture1_MouseDown(reports, x, y);
  }
  void pointAt(int row, int column) {
    const auto [x, y] = middleOf(row, column);
    Picture1_MouseMove(reports, x, y);
  }
  bool used(int row, int column, int report = 1) const {
    return reports.tables.cellused(row, column, report);
  }
  RecordingSurface& page(int slot = 0) { return reportWindow.page(slot); }
  const Operations& sheet() { return printer.surface.operations; }

 private:
  /// Cells by columns: 3147 wide over the columns, that over 1.7387 high, margins 416.03 and
  /// 114.36.
  std::pair<double, double> middleOf(int row, int column) {
    constexpr double kWidth[] = {3147, 1573.5, 1049};
    constexpr double kHeight[] = {1809.97, 904.99, 603.32};
    constexpr double kTop[] = {416.03, 416.03, 114.36};
    const int columns = reports.tables.reportcolumns(reportWindow.selected - 1);
    const auto at = static_cast<std::size_t>(columns - 1);
    return {(column - 0.5) * kWidth[at], (row - 0.5) * kHeight[at] + kTop[at]};
  }
};

}  // namespace zevfit
