#pragma once

#include <QWidget>
#include <array>
#include <functional>

#include "model/fit.h"
#include "model/fit_panel.h"
#include "windows/boundary.h"

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QSlider;

namespace zevfit {

/// The panel `Picture1` at the left of the main window: the fit controls as widgets.
class FitPanelWidgets : public QWidget, public FitPanel {
 public:
  explicit FitPanelWidgets(QWidget* parent = nullptr);

  /// From here on the controls' events run the handlers of the fit. `fit` must outlive the panel's
  /// events.
  void connectTo(Fit& fit, const FaultReport& faults);

  /// Gives the buttons their icons, blank until then.
  void loadIcons();

  /// Called behind each handler that an event of a control has run.
  std::function<void()> handled;

  /// Empties a list and fills it, without an event; no entry is chosen afterwards.
  void fillList(List list, const QStringList& entries);
  int listCount(List list) const;
  /// Takes an entry away, if the list has it. The list stays on its entry, or chooses the first
  /// where that is the one; its handler runs where its position changes.
  void removeEntry(List list, int position);

  std::string text(Field field) const override;
  void setText(Field field, std::string_view text) override;
  int position(Slider slider) const override;
  void setPosition(Slider slider, int position) override;
  void setMinimum(Slider slider, int minimum) override;
  void setMaximum(Slider slider, int maximum) override;
  void setSmallChange(Slider slider, int step) override;
  void setLargeChange(Slider slider, int step) override;
  std::string caption(Caption which) const override;
  void setCaption(Caption which, std::string_view text) override;
  void setSillBackground(Colour colour) override;
  std::string letter(Line structure) const override;
  void setLetter(Line structure, std::string_view letter) override;
  bool ticked(Box box) const override;
  void setTicked(Box box, bool ticked) override;
  void selectLine(Line line) override;
  void setEnabled(Control control, bool enabled) override;
  int listPosition(List list) const override;
  void setListPosition(List list, int position) override;
  void setLineTip(std::string_view text) override;
  void setModelTip(std::string_view text) override;
  void focusPlotButton() override;
  using QWidget::setEnabled;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  /// What a control does on the events that have no signal of their own.
  struct Reaction {
    QObject* control;
    int event;
    void (*handler)(Fit&);
  };

  void makeLists();
  void makeLines();
  void makeModels();
  void makeValues();
  void makeButtons();
  void makeMeasured();
  void paintSill(const QColor& ground);
  void layOut();
  void orderTabs();
  void connectValues();
  void connectChoices();
  void connectReactions();
  void run(void (*handler)(Fit&));
  void handle(const std::function<void()>& handler);
  void onKey(int key);
  void plotFocused(const QEvent& focus);

  QComboBox* list(List which) const { return which == List::Combo2 ? Combo2 : Combodirvar; }
  QLineEdit* field(Field which) const { return which == Field::c0 ? Textc0 : Texta; }
  QSlider* slider(Slider which) const { return which == Slider::c0 ? HScrollc0 : HScrolla; }
  QCheckBox* box(Box which) const { return boxes_[static_cast<std::size_t>(which)]; }

  Fit* fit_ = nullptr;
  const FaultReport* faults_ = nullptr;
  std::vector<Reaction> reactions_;
  bool plotFocusRan_ = false;
  bool boxCame_ = false;     ///< since the plot button last got the focus
  bool stalePress_ = false;  ///< the next press of the plot button has been answered by a box

  QLabel* Label8;
  QLabel* Label9;
  QComboBox* Combo2;
  QComboBox* Combodirvar;
  QGroupBox* Frame1;
  QGroupBox* Frame2;
  QGroupBox* Frame3;
  QGroupBox* label10;
  std::array<QRadioButton*, 4> est;
  std::array<QLabel*, 3> esttipo;
  std::array<QRadioButton*, 4> tipo;
  std::array<QCheckBox*, 5> boxes_;  ///< plot1 to plot4, psill
  QLabel* Label18;
  QLabel* Label21;
  QLineEdit* Textc0;
  QLineEdit* Texta;
  QSlider* HScrollc0;
  QSlider* HScrolla;
  QLabel* Label23;
  QLabel* Labelc;
  QLabel* labelvari;
  QLabel* Labelvariance;
  QPushButton* Command1;
  QPushButton* Command2;
  QPushButton* Command3;
  QPushButton* Command4;
  QPushButton* Command5;
};

}  // namespace zevfit
