#include "desktop/services/system_locale.h"

#include <QLocale>

namespace sentrel {

SystemLocale::SystemLocale() {
  const QLocale locale = QLocale::system();
  for (int month = 1; month <= 12; ++month) {
    QString name = locale.monthName(month, QLocale::ShortFormat);
    if (name.endsWith('.')) name.chop(1);
    const auto place = static_cast<size_t>(month - 1);
    if (!name.isEmpty()) texts_.months[place] = name.toStdString();
    const QString fullName = locale.standaloneMonthName(month, QLocale::LongFormat);
    if (!fullName.isEmpty()) texts_.fullMonths[place] = fullName.toStdString();
  }
  texts_.am = locale.amText().toStdString();
  texts_.pm = locale.pmText().toStdString();
}

}  // namespace sentrel
