;;; Emacs with eglot and editors/emacs/tarka.el on a program with copybooks, CICS and SQL.  -*- lexical-binding: t -*-
;; Run by run.sh in a directory with the program; a failure is an error.

(package-initialize)
(require 'tarka)
(require 'cl-lib)

(setq tarka-program (getenv "TARKA")
      eglot-sync-connect t
      eglot-confirm-server-initiated-edits nil
      xref-prompt-for-identifier nil
      make-backup-files nil)

(defun wait-until (what holds)
  (let ((end (+ (float-time) 20)))
    (while (not (funcall holds))
      (when (> (float-time) end)
        (error "emacs: %s" what))
      (accept-process-output nil 0.02))))

(defun go-to (text &optional offset)
  (goto-char (point-min))
  (search-forward text)
  (goto-char (+ (match-beginning 0) (or offset 0))))

(defun ask (method &rest more)
  (jsonrpc-request (eglot--current-server-or-lose) method
                   (append (eglot--TextDocumentPositionParams) more)))

(defun send ()
  (eglot--signal-textDocument/didChange)
  (flymake-start))

(find-file "ORDERS.cbl")
(unless (eq major-mode 'tarka-mode)
  (error "emacs: the mode is %s" major-mode))
(unless (eglot-current-server)
  (apply #'eglot--connect (eglot--guess-contact)))
(flymake-mode 1)

;; Diagnostics come and go with the text.
(go-to "MOVE WS-NAME" 12)
(insert "X")
(send)
(wait-until "no diagnostic" (lambda () (= 1 (length (flymake-diagnostics)))))
(delete-char -1)
(send)
(wait-until "the diagnostic stays" (lambda () (null (flymake-diagnostics))))

(go-to "STATUS-OK AND" 2)
(unless (string-match-p "88 STATUS-OK"
                        (plist-get (plist-get (ask :textDocument/hover) :contents) :value))
  (error "emacs: hover"))
(go-to "PERFORM SHOW-IT" 9)
(call-interactively #'xref-find-definitions)
(unless (looking-at-p "SHOW-IT\\.")
  (error "emacs: definition is at %s" (buffer-substring (point) (line-end-position))))
(go-to "01  WS-COUNT" 5)
(unless (= 3 (length (ask :textDocument/references :context '(:includeDeclaration t))))
  (error "emacs: references"))

(go-to "MOVE WS-NAME" 12)
(insert "\n           MOVE WS-COU")
(send)
(let ((completion (eglot-completion-at-point)))
  (unless (member "WS-COUNT"
                  (all-completions "WS-COU" (nth 2 completion)))
    (error "emacs: completion")))
(delete-region (line-beginning-position 1) (1+ (point)))
(go-to "MOVE WS-NAME")
(send)

(go-to "01  WS-COUNT" 5)
(eglot-rename "WS-NUMBER")
(go-to "USING WS-NUMBER")
(set-buffer-modified-p nil)
(eglot-shutdown (eglot-current-server))
