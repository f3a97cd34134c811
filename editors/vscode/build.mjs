// Builds the extension: one script, and the grammar, whose words come from the front end's table.
import { build } from 'esbuild';
import { mkdirSync, readFileSync, writeFileSync } from 'node:fs';

const table = readFileSync(new URL('../../include/Parse/Keywords.def', import.meta.url), 'utf8');

/** The words of the table by what they are: the first flag that has a scope decides. */
function wordsByScope() {
  const scopes = [
    ['KF_Verb', 'keyword.control.statement.cobol'],
    ['KF_ScopeTerminator', 'keyword.control.statement.cobol'],
    ['KF_CompilerDirecting', 'keyword.control.directive.cobol'],
    ['KF_FigurativeConstant', 'constant.language.cobol'],
    ['KF_SpecialRegister', 'variable.language.cobol'],
    ['KF_Header', 'keyword.other.header.cobol'],
    ['KF_None', 'keyword.other.cobol'],
  ];
  const words = new Map(scopes.map(([, scope]) => [scope, []]));
  for (const [, text, flags] of table.matchAll(/^KEYWORD\(\w+, "([A-Z0-9-]+)", ([^)]*)\)/gm)) {
    // A word that is a keyword in some places only is a name in most programs.
    if (flags.includes('KF_ContextSensitive') || flags.includes('KF_OsvsOnly')) continue;
    const scope = scopes.find(([flag]) => flags.includes(flag));
    if (scope) words.get(scope[1]).push(text);
  }
  return words;
}

function makeGrammar() {
  const grammar = JSON.parse(readFileSync('syntaxes/cobol.tmLanguage.json', 'utf8'));
  const words = wordsByScope();
  if (words.get('keyword.control.statement.cobol').length < 40) throw new Error('Keywords.def has another form');
  grammar.repository.words = {
    patterns: [...words].map(([name, list]) => ({
      name,
      // The longest first: END-IF is not END.
      match: `(?i)(?<![\\w-])(?:${list.sort((a, b) => b.length - a.length).join('|')})(?![\\w-])`,
    })),
  };
  writeFileSync('out/cobol.tmLanguage.json', JSON.stringify(grammar));
}

mkdirSync('out', { recursive: true });
makeGrammar();
await build({
  entryPoints: ['src/extension.ts'],
  outfile: 'out/extension.js',
  bundle: true,
  minify: true,
  platform: 'node',
  target: 'node18',
  format: 'cjs',
  external: ['vscode'],
});
