;;; tarka.el --- COBOL with the Tarka language server  -*- lexical-binding: t -*-

;; Emacs 28 with eglot from ELPA (Debian: elpa-eglot), or Emacs 29 and later. Put this file into a
;; directory of `load-path' and (require 'tarka) into your init file.

;;; Code:

(require 'eglot)

(defvar tarka-program "tarka"
  "The program tarka.")

(defvar tarka-mode-syntax-table
  (let ((table (make-syntax-table)))
    (modify-syntax-entry ?- "w" table)
    (modify-syntax-entry ?_ "w" table)
    (modify-syntax-entry ?' "\"" table)
    table)
  "Names of COBOL have hyphens.")

;;;###autoload
(define-derived-mode tarka-mode prog-mode "COBOL"
  "COBOL, as the language server knows it."
  (setq-local comment-start "*> ")
  (setq-local indent-tabs-mode nil))

;;;###autoload
(add-to-list 'auto-mode-alist
             '("\\.\\(cbl\\|cob\\|cobol\\|pco\\|cpy\\|copy\\)\\'" . tarka-mode))
(add-to-list 'eglot-server-programs
             (cons 'tarka-mode (lambda (&rest _) (list tarka-program "lsp"))))
(add-hook 'tarka-mode-hook #'eglot-ensure)

(provide 'tarka)
;;; tarka.el ends here
