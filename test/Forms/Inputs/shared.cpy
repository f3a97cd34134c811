           move spaces to missing
