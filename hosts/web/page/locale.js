// SPDX-License-Identifier: GPL-2.0-or-later
// The browser's locale as patterns of Unicode.

// Single digits everywhere, so that a leading zero can be told.
const sample = new Date(2001, 0, 5, 3, 7, 9);
const afternoon = new Date(2001, 0, 5, 15, 7, 9);

/**
 * @param {string} language
 * @param {Intl.DateTimeFormatOptions} options
 */
function patternOf(language, options) {
  const format = new Intl.DateTimeFormat(language, {
    ...options,
    numberingSystem: 'latn',
    calendar: 'gregory',
  });
  const twelve = format.resolvedOptions().hour12;
  const letters = /** @type {Record<string, string>} */ ({
    day: 'd',
    hour: twelve ? 'h' : 'H',
    minute: 'm',
    second: 's',
  });
  return format
    .formatToParts(sample)
    .map(({ type, value }) => {
      if (type === 'year') return 'yyyy';
      if (type === 'weekday') return 'EEEE';
      if (type === 'dayPeriod') return 'a';
      if (type === 'month') return /^\d/u.test(value) ? 'M'.repeat(value.length) : 'MMMM';
      if (letters[type]) return letters[type].repeat(value.length);
      const plain = value.replace(/[\u00a0\u202f]/gu, ' ');
      return /\p{L}/u.test(plain) ? `'${plain.replaceAll("'", "''")}'` : plain;
    })
    .join('');
}

/**
 * @param {Intl.DateTimeFormat} format
 * @param {Date} date
 */
const period = (format, date) =>
  format.formatToParts(date).find((part) => part.type === 'dayPeriod')?.value ?? '';

/**
 * What the tools need to know of a language.
 * @param {string} language
 */
export function localeOf(language) {
  const number = new Intl.NumberFormat(language, { numberingSystem: 'latn' }).formatToParts(
    1234567.5,
  );
  const time = new Intl.DateTimeFormat(language, { hour: 'numeric', hour12: true });
  const month = new Intl.DateTimeFormat(language, { month: 'long' });
  const weekday = new Intl.DateTimeFormat(language, { weekday: 'long' });
  return {
    decimal: number.find((part) => part.type === 'decimal')?.value,
    group: number.find((part) => part.type === 'group')?.value,
    shortDate: patternOf(language, { dateStyle: 'short' }),
    longDate: patternOf(language, { dateStyle: 'full' }),
    longTime: patternOf(language, { timeStyle: 'medium' }),
    morning: period(time, sample),
    afternoon: period(time, afternoon),
    months: Array.from({ length: 12 }, (_, i) => month.format(new Date(2001, i, 1))),
    // The seventh of January 2001 was a Sunday.
    weekdays: Array.from({ length: 7 }, (_, i) => weekday.format(new Date(2001, 0, 7 + i))),
  };
}
