// The extension starts `tarka lsp` and shows what its commands answer: text, or a graph.

import { accessSync, constants, existsSync } from 'node:fs';
import * as path from 'node:path';
import * as vscode from 'vscode';
import { LanguageClient, RevealOutputChannelOn } from 'vscode-languageclient/node';
import { Answer, Views } from './views';

let client: LanguageClient | undefined;
let channel: vscode.OutputChannel;
let views: Views;

export async function activate(context: vscode.ExtensionContext): Promise<void> {
  channel = vscode.window.createOutputChannel('Tarka COBOL');
  views = new Views(context);
  context.subscriptions.push(
    channel,
    vscode.commands.registerCommand('tarka.restart', () => restart(context)),
    vscode.commands.registerCommand('tarka.layoutHere', () => runHere('tarka.showLayout')),
    vscode.commands.registerCommand('tarka.flowHere', () => runHere('tarka.showFlow')),
    vscode.commands.registerCommand('tarka.expandedHere', () => runHere('tarka.showExpanded')),
    vscode.workspace.onDidChangeConfiguration((change) => {
      if (change.affectsConfiguration('tarka.path') || change.affectsConfiguration('tarka.arguments'))
        void restart(context);
    }),
  );
  await start(context);
}

export async function deactivate(): Promise<void> {
  await client?.stop();
}

async function restart(context: vscode.ExtensionContext): Promise<void> {
  await client?.stop();
  client = undefined;
  await start(context);
}

async function start(context: vscode.ExtensionContext): Promise<void> {
  const settings = vscode.workspace.getConfiguration('tarka');
  const program = findProgram(context, settings.get<string>('path', ''));
  if (!program) {
    await reportMissing(settings.get<string>('path', ''));
    return;
  }
  const command = { command: program, args: ['lsp', ...settings.get<string[]>('arguments', [])] };
  client = new LanguageClient('tarka', 'Tarka COBOL', { run: command, debug: command }, {
    documentSelector: [
      { scheme: 'file', language: 'cobol' },
      { scheme: 'untitled', language: 'cobol' },
    ],
    outputChannel: channel,
    revealOutputChannelOn: RevealOutputChannelOn.Never,
    synchronize: {
      fileEvents: vscode.workspace.createFileSystemWatcher('**/*'),
    },
    middleware: {
      executeCommand: async (name, args, next) => {
        const answer: unknown = await next(name, args);
        if (isAnswer(answer)) await views.show(answer);
        return answer;
      },
    },
  });
  await client.start();
}

function isAnswer(value: unknown): value is Answer {
  return typeof value === 'object' && value !== null && 'content' in value && 'kind' in value;
}

/** The program of the settings, the one that is packed with the extension, or the one on the PATH. */
function findProgram(context: vscode.ExtensionContext, configured: string): string | undefined {
  const name = process.platform === 'win32' ? 'tarka.exe' : 'tarka';
  if (configured) {
    const folder = vscode.workspace.workspaceFolders?.[0]?.uri.fsPath ?? '';
    const resolved = path.resolve(folder, configured.replace('${workspaceFolder}', folder));
    return isProgram(resolved) ? resolved : undefined;
  }
  const bundled = context.asAbsolutePath(path.join('bin', name));
  const onPath = (process.env.PATH ?? '').split(path.delimiter).map((folder) => path.join(folder, name));
  return [bundled, ...onPath].find(isProgram);
}

function isProgram(file: string): boolean {
  try {
    accessSync(file, constants.X_OK);
    return existsSync(file);
  } catch {
    return false;
  }
}

async function reportMissing(configured: string): Promise<void> {
  const message = configured
    ? `The program ${configured} (tarka.path) cannot be run.`
    : 'The program tarka is not on the PATH. Install it, or set tarka.path.';
  if ((await vscode.window.showErrorMessage(message, 'Open Settings')) === 'Open Settings')
    await vscode.commands.executeCommand('workbench.action.openSettings', 'tarka.path');
}

/** Runs a command of the server for the place of the cursor. */
async function runHere(command: string): Promise<void> {
  const editor = vscode.window.activeTextEditor;
  if (!editor || editor.document.languageId !== 'cobol') return;
  const { line, character } = editor.selection.active;
  await vscode.commands.executeCommand(command, editor.document.uri.toString(), { position: { line, character } });
}
