// SPDX-License-Identifier: GPL-2.0-or-later
// What ESLint holds the page and its tests to.
import js from '@eslint/js';
import globals from 'globals';

export default [
  { ignores: ['build/', 'hosts/web/imports.js'] },
  js.configs.recommended,
  {
    languageOptions: { globals: { ...globals.browser } },
    rules: {
      eqeqeq: 'error',
      'no-eval': 'error',
      'no-implied-eval': 'error',
      'no-var': 'error',
      'prefer-const': 'error',
      'no-restricted-properties': [
        'error',
        { property: 'innerHTML', message: 'Texts are set as text.' },
        { property: 'outerHTML', message: 'Texts are set as text.' },
        { property: 'insertAdjacentHTML', message: 'Texts are set as text.' },
      ],
      'no-unused-vars': ['error', { argsIgnorePattern: '^_' }],
    },
  },
  { files: ['tests/web/**', 'bench/**', '*.config.js'], languageOptions: { globals: { ...globals.node } } },
];
